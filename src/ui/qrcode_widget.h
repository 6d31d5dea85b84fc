#pragma once

#include <QColor>
#include <QWidget>

#include <qrencode.h>

class QPainter;

// Draws one QR code, encoded by libqrencode, stretched over the whole widget:
// a module is width/n by height/n in floating point, so the code always fills
// the widget whatever its size.
class QrcodeWidget : public QWidget {
    Q_OBJECT

public:
    explicit QrcodeWidget(QWidget* parent = nullptr);
    ~QrcodeWidget() override;

    // An empty text clears the code. A text too long for any version leaves
    // no code, and the widget shows its background only.
    void generateString(const QString& text);
    void clear();
    bool hasValidData() const;

    void setForegroundColor(const QColor& color);
    void setBackgroundColor(const QColor& color);
    QColor foregroundColor() const { return foreground_color; }
    QColor backgroundColor() const { return background_color; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Renders the code on a size x size RGB32 image; false for no code, an
    // empty path or a size below 1.
    bool saveImage(const QString& path, int size) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void draw(QPainter& painter, int width, int height) const;
    int moduleCount() const;

    QRcode* qr_code = nullptr;
    QColor foreground_color = Qt::black;
    QColor background_color = Qt::white;
};
