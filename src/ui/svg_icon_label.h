#pragma once

#include <QColor>
#include <QLabel>
#include <QSize>
#include <QString>

class QPushButton;
class QResizeEvent;

// A label that shows a monochrome SVG mask in one flat colour. The colour
// normally comes from the style sheet through `qproperty-iconColor`, so that a
// theme can recolour every icon without a second set of files.
class SvgIconLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QString svgPath READ svgPath WRITE setSvgPath)
    Q_PROPERTY(QColor iconColor READ iconColor WRITE setIconColor)

public:
    explicit SvgIconLabel(QWidget* parent = nullptr);

    QString svgPath() const { return svg_path; }
    QColor iconColor() const { return icon_color; }

    void setSvgPath(const QString& path);
    void setIconColor(const QColor& color);
    void refreshPixmap();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void updatePixmap();

    QString svg_path;
    QColor icon_color{Qt::white};
};

QLabel* createSvgIconLabel(QWidget* parent, const QString& svgPath, const QSize& size,
                           const QString& className);

// Sets the icon of any label: tinted for an SvgIconLabel, the file's own
// colours for a plain QLabel. A null label is ignored.
void setSvgIconPath(QLabel* label, const QString& path);

// Re-polishes the three parts of a styled control after one of their state
// properties changed, so the selectors of the new state take effect. Any
// argument may be null.
void refreshStyledIcon(QPushButton* button, QLabel* icon, QLabel* text);
