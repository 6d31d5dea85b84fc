#include "ui/svg_icon_label.h"
#include "ui/components/style_state.h"

#include <QFileInfo>
#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QResizeEvent>
#include <QStyle>
#include <QSvgRenderer>

namespace {

// Rendering an SVG is slow on the panel's board and pages re-set their icons
// on every refresh, so every tinted result is kept for the life of the
// process. The set of paths, sizes and theme colours is small and fixed, so
// the cache needs no limit.
QHash<QString, QPixmap>& tintedPixmapCache()
{
    static QHash<QString, QPixmap> cache;
    return cache;
}

QString tintedPixmapKey(const QString& path, const QSize& size, const QColor& color)
{
    return QStringLiteral("%1|%2|%3|%4")
        .arg(path)
        .arg(size.width())
        .arg(size.height())
        .arg(static_cast<uint>(color.rgba()));
}

} // namespace

SvgIconLabel::SvgIconLabel(QWidget* parent) : QLabel(parent)
{
    setAttribute(Qt::WA_StyledBackground);
}

void SvgIconLabel::setSvgPath(const QString& path)
{
    if (path == svg_path)
        return;
    svg_path = path;
    updatePixmap();
}

void SvgIconLabel::setIconColor(const QColor& color)
{
    if (color == icon_color)
        return;
    icon_color = color;
    updatePixmap();
}

void SvgIconLabel::refreshPixmap()
{
    updatePixmap();
}

void SvgIconLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    updatePixmap();
}

void SvgIconLabel::updatePixmap()
{
    const QSize target = size();
    if (svg_path.isEmpty() || target.width() <= 0 || target.height() <= 0)
        return;

    const QString key = tintedPixmapKey(svg_path, target, icon_color);
    auto& cache = tintedPixmapCache();
    const auto hit = cache.constFind(key);
    if (hit != cache.constEnd()) {
        setPixmap(hit.value());
        return;
    }

    // A missing file would make the renderer print a warning at every refresh.
    if (!QFileInfo::exists(svg_path))
        return;
    QSvgRenderer renderer(svg_path);
    if (!renderer.isValid())
        return;

    QPixmap pixmap(target);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(target)));
    // Keep only the drawing's alpha, in the one colour the style asked for.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), icon_color);
    painter.end();

    cache.insert(key, pixmap);
    setPixmap(pixmap);
}

QLabel* createSvgIconLabel(QWidget* parent, const QString& svgPath, const QSize& size,
                           const QString& className)
{
    auto* label = new SvgIconLabel(parent);
    if (!className.isEmpty())
        label->setProperty("class", className);
    label->setFixedSize(size);
    label->setSvgPath(svgPath);
    return label;
}

void setSvgIconPath(QLabel* label, const QString& path)
{
    if (auto* svgLabel = qobject_cast<SvgIconLabel*>(label))
        svgLabel->setSvgPath(path);
    else if (label)
        label->setPixmap(QPixmap(path));
}

void refreshStyledIcon(QPushButton* button, QLabel* icon, QLabel* text)
{
    if (button)
        repolish(button);
    if (icon) {
        repolish(icon);
        // A re-polish that leaves the colour as it was does not redraw; draw
        // anyway so the label always shows its current path in its current colour.
        if (auto* svgLabel = qobject_cast<SvgIconLabel*>(icon))
            svgLabel->refreshPixmap();
        icon->update();
    }
    if (text) {
        repolish(text);
        text->update();
    }
}
