#include "pages/shortcut_list_page.h"

#include "ui/components/shortcut_list_component.h"
#include "ui/text_ellipsis.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVariant>

namespace {

using ShortcutListComponent::kRowHeight;
using ShortcutListComponent::kRowWidth;
constexpr int kRowGap = ShortcutListComponent::kScrollStep - kRowWidth;

} // namespace

ShortcutListPage::ShortcutListPage(UITextManager* textManager, QWidget* parent)
    : BasicPage(textManager, parent)
{
    scroll_area = ShortcutListComponent::createScrollArea(this, &content);
    empty_hint = ShortcutListComponent::createEmptyHint(this);
    ShortcutListComponent::layoutList(this, scroll_area, empty_hint);
}

bool ShortcutListPage::canScrollLeft() const
{
    return ShortcutListComponent::canScrollLeft(scroll_area);
}

bool ShortcutListPage::canScrollRight() const
{
    return ShortcutListComponent::canScrollRight(scroll_area);
}

bool ShortcutListPage::scrollListLeft()
{
    return ShortcutListComponent::scrollLeft(scroll_area);
}

bool ShortcutListPage::scrollListRight()
{
    return ShortcutListComponent::scrollRight(scroll_area);
}

int ShortcutListPage::swipeLeftOr(int pageWhenAtEnd)
{
    if (!canScrollRight())
        return pageWhenAtEnd;
    scrollListRight();
    return -1;
}

int ShortcutListPage::swipeRightOr(int pageWhenAtStart)
{
    if (!canScrollLeft())
        return pageWhenAtStart;
    scrollListLeft();
    return -1;
}

void ShortcutListPage::clearItems()
{
    for (QPushButton* row : rows)
        delete row;
    rows.clear();
}

void ShortcutListPage::showRows(const QVector<Row>& list, const QString& emptyText)
{
    clearItems();
    const int n = qMin(list.size(), kMaxRows);
    if (n == 0) {
        // An empty content has nothing to scroll, so swipes leave the page at once.
        content->resize(0, kRowHeight);
        scroll_area->hide();
        ShortcutListComponent::setEmptyState(scroll_area, empty_hint, emptyText, true);
        return;
    }
    ShortcutListComponent::setEmptyState(scroll_area, empty_hint, QString(), false);
    empty_hint->hide();
    content->resize(n * kRowWidth + (n - 1) * kRowGap, kRowHeight);

    for (int i = 0; i < n; ++i) {
        const Row& row = list.at(i);
        const auto item = ShortcutListComponent::createStatusItem(
            content, i, buildEllipsisName(row.name, 0), row.status.text, row.status.state,
            row.active ? QStringLiteral("active") : QStringLiteral("normal"));
        if (!item.button)
            continue;
        rows.append(item.button);
        const int key = row.key;
        const bool on = row.on;
        connect(item.button, &QPushButton::clicked, this,
                [this, key, on] { onRowClicked(key, on); });
    }
}
