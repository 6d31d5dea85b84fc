#include "text_fit_check.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QFontMetrics>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextDocument>
#include <QWidget>

namespace pagetest {

namespace {

const QString kEllipsis = QStringLiteral("\u2026");
const QString kDots = QStringLiteral("...");

// The gap that QPushButton leaves between its icon and its text.
constexpr int kButtonIconSpacing = 4;
// Room around a text's layout box for glyphs that reach beyond it.
constexpr int kInkMargin = 16;
// Coverage from which a pixel counts as ink; below it is the faint fringe of
// antialiasing, whose loss nobody sees.
constexpr int kInkAlpha = 96;

QRect rectIn(const QWidget* widget, const QRect& rect, const QWidget* root)
{
    return rect.translated(widget->mapTo(root, QPoint(0, 0)));
}

bool isScrollContent(const QWidget* widget)
{
    const QWidget* viewport = widget->parentWidget();
    const auto* area =
        viewport ? qobject_cast<const QAbstractScrollArea*>(viewport->parentWidget()) : nullptr;
    return area && area->viewport() == viewport;
}

// The part of `rect` (in `widget`) that its parents leave visible, in root
// coordinates.
QRect visiblePart(const QWidget* widget, const QRect& rect, const QWidget* root)
{
    QRect visible = rectIn(widget, rect, root);
    for (const QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (isScrollContent(parent))
            return visible;
        visible &= rectIn(parent, parent->rect(), root);
        if (parent == root)
            break;
    }
    return visible;
}

// Where QLabel lays out its text: the contents rectangle less margin and
// indent (QLabelPrivate::documentRect).
QRect labelTextArea(const QLabel* label)
{
    QRect area = label->contentsRect();
    const int margin = label->margin();
    area.adjust(margin, margin, -margin, -margin);
    int indent = label->indent();
    if (indent < 0 && label->frameWidth() > 0)
        indent = label->fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2 - margin;
    if (indent > 0) {
        const Qt::Alignment align =
            QStyle::visualAlignment(label->layoutDirection(), label->alignment());
        if (align & Qt::AlignLeft)
            area.setLeft(area.left() + indent);
        if (align & Qt::AlignRight)
            area.setRight(area.right() - indent);
        if (align & Qt::AlignTop)
            area.setTop(area.top() + indent);
        if (align & Qt::AlignBottom)
            area.setBottom(area.bottom() - indent);
    }
    return area;
}

bool isRichText(const QLabel* label)
{
    return label->textFormat() == Qt::RichText
           || (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(label->text()));
}

QString plainTextOf(const QLabel* label)
{
    if (!isRichText(label))
        return label->text();
    QTextDocument document;
    document.setHtml(label->text());
    return document.toPlainText();
}

// The rectangle the text takes when laid out in `area` as QLabel does it.
QRect textRect(const QLabel* label, const QRect& area, const QString& text)
{
    int flags = static_cast<int>(label->alignment());
    if (label->wordWrap())
        flags |= Qt::TextWordWrap;
    return QFontMetrics(label->font()).boundingRect(area, flags, text);
}

QString describeWidget(const QWidget* widget)
{
    QString name = QString::fromLatin1(widget->metaObject()->className());
    const QString styleClass = widget->property("class").toString();
    if (!styleClass.isEmpty())
        name += QStringLiteral("[%1]").arg(styleClass);
    if (!widget->objectName().isEmpty())
        name += QStringLiteral("#%1").arg(widget->objectName());
    return name;
}

QString excuseFor(const QWidget* widget, const QString& text, const TextFitRules& rules)
{
    if (rules.translations.contains(text))
        return QString();
    if (text.contains(kEllipsis) || text.contains(kDots))
        return QStringLiteral("shortened on purpose");
    return rules.excuse ? rules.excuse(widget, text) : QString();
}

TextOverflow overflowOf(const QWidget* widget, const QString& text, bool vertical, int needed,
                        int available, const TextFitRules& rules)
{
    return {describeWidget(widget),        text, vertical, needed, available,
            excuseFor(widget, text, rules)};
}

// Where the text's pixels land when QLabel draws it in `area` without
// clipping: glyphs have side bearings, and lines leave room for accents and
// descenders, so the layout's box overstates what a reader sees. An empty
// rectangle for a text without visible ink.
QRect inkRect(const QLabel* label, const QRect& area, const QString& text, const QRect& laid)
{
    const QRect canvas =
        laid.united(area).adjusted(-kInkMargin, -kInkMargin, kInkMargin, kInkMargin);
    QImage image(canvas.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(label->font());
    painter.setPen(Qt::black);
    int flags = static_cast<int>(label->alignment()) | Qt::TextDontClip;
    if (label->wordWrap())
        flags |= Qt::TextWordWrap;
    painter.drawText(area.translated(-canvas.topLeft()), flags, text);
    painter.end();

    int left = image.width(), right = -1, top = image.height(), bottom = -1;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(line[x]) < kInkAlpha)
                continue;
            left = qMin(left, x);
            right = qMax(right, x);
            top = qMin(top, y);
            bottom = qMax(bottom, y);
        }
    }
    if (right < 0)
        return QRect();
    return QRect(QPoint(left, top), QPoint(right, bottom)).translated(canvas.topLeft());
}

void checkLabel(const QLabel* label, const QWidget* root, const TextFitRules& rules,
                QVector<TextOverflow>& found)
{
    const QString text = plainTextOf(label);
    if (text.trimmed().isEmpty())
        return;
    const QRect area = labelTextArea(label);
    const QRect room = visiblePart(label, area, root);
    if (room.isEmpty())
        return; // clipped away as a whole: nobody sees it
    const QRect laid = textRect(label, area, text);
    const bool severalLines = label->wordWrap() || text.contains(QLatin1Char('\n'));
    const QRect laidInRoot = rectIn(label, laid, root);
    const bool wide = laidInRoot.left() < room.left() || laidInRoot.right() > room.right();
    const bool high =
        severalLines && (laidInRoot.top() < room.top() || laidInRoot.bottom() > room.bottom());
    if (!wide && !high)
        return;
    const QRect ink = rectIn(label, inkRect(label, area, text, laid), root);
    if (ink.left() < room.left() || ink.right() > room.right())
        found << overflowOf(label, text, false, ink.width(), room.width(), rules);
    if (severalLines && (ink.top() < room.top() || ink.bottom() > room.bottom()))
        found << overflowOf(label, text, true, ink.height(), room.height(), rules);
}

void checkButton(const QAbstractButton* button, const QWidget* root, const TextFitRules& rules,
                 QVector<TextOverflow>& found)
{
    const QString text = button->text();
    if (text.trimmed().isEmpty())
        return;
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = text;
    option.icon = button->icon();
    option.iconSize = button->iconSize();
    const QRect contents =
        button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
    const QRect room = visiblePart(button, contents, root);
    if (room.isEmpty())
        return;
    int needed = QFontMetrics(button->font()).horizontalAdvance(text);
    if (!option.icon.isNull())
        needed += option.iconSize.width() + kButtonIconSpacing;
    if (needed > room.width())
        found << overflowOf(button, text, false, needed, room.width(), rules);
}

} // namespace

QVector<TextOverflow> findTextOverflows(const QWidget* root, const TextFitRules& rules)
{
    QVector<TextOverflow> found;
    QList<const QWidget*> widgets{root};
    for (const QWidget* child : root->findChildren<QWidget*>())
        widgets << child;
    for (const QWidget* widget : widgets) {
        if (!widget->isVisibleTo(root) && widget != root)
            continue;
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            checkLabel(label, root, rules, found);
        else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            checkButton(button, root, rules, found);
    }
    return found;
}

QString describe(const TextOverflow& overflow)
{
    return QStringLiteral("%1 \"%2\": %3 px %4 in %5 px")
        .arg(overflow.widget, overflow.text)
        .arg(overflow.needed)
        .arg(overflow.vertical ? QStringLiteral("high") : QStringLiteral("wide"))
        .arg(overflow.available);
}

} // namespace pagetest
