#include "ui/components/shortcut_list_component.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVariant>

namespace ShortcutListComponent {

namespace {

constexpr int kAreaWidth = 540;
constexpr int kAreaHeight = 110;
constexpr int kStatusTextWidth = 148;

QLabel* createRowLabel(QPushButton* row, const char* className, const QString& text, int y,
                       int height)
{
    auto* label = new QLabel(text, row);
    label->setProperty("class", className);
    label->setAlignment(Qt::AlignCenter);
    label->setGeometry(0, y, kRowWidth, height);
    label->show();
    return label;
}

} // namespace

QScrollArea* createScrollArea(QWidget* parent, QWidget** content)
{
    auto* area = new QScrollArea(parent);
    area->resize(kAreaWidth, kAreaHeight);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(false);
    area->setStyleSheet(QStringLiteral("background: transparent;"));

    auto* inner = new QWidget;
    inner->setStyleSheet(QStringLiteral("background: transparent;"));
    area->setWidget(inner);
    if (content)
        *content = inner;
    return area;
}

QLabel* createEmptyHint(QWidget* parent)
{
    auto* hint = new QLabel(parent);
    hint->setProperty("class", "v2-shortcut-empty-hint");
    hint->setWordWrap(true);
    hint->setAlignment(Qt::AlignCenter);
    hint->hide();
    return hint;
}

void layoutList(QWidget* page, QScrollArea* area, QLabel* hint)
{
    if (!page)
        return;
    const int y = (page->height() - kAreaHeight) / 2;
    if (area)
        area->move(50, y);
    if (hint)
        hint->setGeometry(QRect(QPoint(50, y), QPoint(page->width() - 51, y + 99)));
}

void setEmptyState(QScrollArea* area, QLabel* hint, const QString& text, bool empty)
{
    if (area && !empty)
        area->show();
    if (hint) {
        hint->setText(text);
        if (empty)
            hint->show();
    }
}

SubmenuButtonItem createStatusItem(QWidget* content, int index, const QString& name,
                                   const QString& statusText, const QString& statusState,
                                   const QString& btnState)
{
    if (!content)
        return {};
    auto* row = new QPushButton(content);
    row->setGeometry(index * kScrollStep, 0, kRowWidth, kRowHeight);
    row->setFocusPolicy(Qt::NoFocus);
    row->setProperty("class", "v2-sys-card-btn");
    row->setProperty("btn-state", btnState);

    QLabel* nameLabel = createRowLabel(row, "v2-sys-card-label", name, 20, 24);
    QLabel* status = createRowLabel(row, "v2-shortcut-status", QString(), 48, 18);
    status->setProperty("state", statusState);
    status->setText(
        QFontMetrics(status->font()).elidedText(statusText, Qt::ElideRight, kStatusTextWidth));
    row->show();
    return {row, nullptr, nameLabel};
}

bool canScrollLeft(QScrollArea* area)
{
    if (!area)
        return false;
    const QScrollBar* bar = area->horizontalScrollBar();
    return bar->value() > bar->minimum();
}

bool canScrollRight(QScrollArea* area)
{
    if (!area)
        return false;
    const QScrollBar* bar = area->horizontalScrollBar();
    return bar->value() < bar->maximum();
}

bool scrollLeft(QScrollArea* area)
{
    if (!area)
        return false;
    QScrollBar* bar = area->horizontalScrollBar();
    bar->setValue(qMax(bar->value() - kScrollStep, bar->minimum()));
    return canScrollLeft(area);
}

bool scrollRight(QScrollArea* area)
{
    if (!area)
        return false;
    QScrollBar* bar = area->horizontalScrollBar();
    bar->setValue(qMin(bar->value() + kScrollStep, bar->maximum()));
    return canScrollRight(area);
}

} // namespace ShortcutListComponent
