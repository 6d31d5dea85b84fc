#include "input/gesture_guide_overlay_component.h"

#include "pages/page_ids.h"
#include "transport/harvelin_log.h"
#include "ui/svg_icon_label.h"

#include <QLabel>
#include <QTimer>
#include <QVariant>

namespace {

const QString kSwipeLeftRightIcon = QStringLiteral(":/icons/general/swipe_left_right.svg");
const QString kSwipeUpIcon = QStringLiteral(":/icons/general/swipe_up.svg");
const QString kSwipeDownIcon = QStringLiteral(":/icons/general/swipe_down.svg");
const QString kEdgeSwipeIcon = QStringLiteral(":/icons/general/edge_swipe_inward.svg");
const QString kLongPressIcon = QStringLiteral(":/icons/general/long_press.svg");

const QString kItemPages = QStringLiteral("gesture_guide.item_pages");
const QString kItemMenu = QStringLiteral("gesture_guide.item_menu");
const QString kItemApp = QStringLiteral("gesture_guide.item_app");
const QString kItemHome = QStringLiteral("gesture_guide.item_home");
const QString kItemShortcut = QStringLiteral("gesture_guide.item_shortcut");
const QString kItemUnlock = QStringLiteral("gesture_guide.item_unlock");

// Card geometry inside the 640x172 overlay; items sit in a 600-pixel row
// with 8-pixel gaps.
const QRect kCardRect(10, 24, 620, 124);
constexpr int kItemRowLeft = 10;
constexpr int kItemRowWidth = 600;
constexpr int kItemGap = 8;
constexpr int kItemTop = 10;
constexpr int kItemHeight = 104;
constexpr int kIconSize = 44;
constexpr int kIconTop = 9;
constexpr int kLabelInset = 4;
constexpr int kLabelTop = 58;
constexpr int kLabelHeight = 44;

bool isMixedHomePage(int page)
{
    return (page >= PAGE_STATUS_1 && page <= PAGE_STATUS_3)
           || (page >= PAGE_ENCODER_SHORTCUT_1 && page <= PAGE_DECODER_SHORTCUT_3);
}

bool isMainMenuPage(int page)
{
    return page == PAGE_MAIN_MENU_1 || page == PAGE_MAIN_MENU_2;
}

void makeTransparentChild(QWidget* widget, const char* className)
{
    widget->setProperty("class", QString::fromLatin1(className));
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
}

int intField(const nlohmann::json& record, const char* name)
{
    const auto it = record.find(name);
    return it != record.end() && it->is_number_integer() ? it->get<int>() : 0;
}

int shownCount(const nlohmann::json& record, int type)
{
    const auto it = record.find("shown_counts");
    if (it == record.end() || !it->is_array() || static_cast<size_t>(type) >= it->size())
        return 0;
    const nlohmann::json& count = (*it)[static_cast<size_t>(type)];
    return count.is_number_integer() ? count.get<int>() : 0;
}

// Stores the new count, padding a short (or missing) list with zeros so that
// the backend never sees holes.
void storeShownCount(nlohmann::json& record, int type, int count)
{
    nlohmann::json& counts = record["shown_counts"];
    if (!counts.is_array())
        counts = nlohmann::json::array();
    while (counts.size() <= static_cast<size_t>(type))
        counts.push_back(0);
    counts[static_cast<size_t>(type)] = count;
}

} // namespace

int getGestureGuideTypeForPage(int page)
{
    if (isMixedHomePage(page))
        return GESTURE_GUIDE_HOME;
    if (isMainMenuPage(page))
        return GESTURE_GUIDE_MAIN_MENU;
    if (page == PAGE_CONNECT_APP)
        return GESTURE_GUIDE_CONNECT_APP;
    return GESTURE_GUIDE_NONE;
}

int getActiveGestureGuideTypeForPage(int page, bool lcdTouchLocked)
{
    return lcdTouchLocked ? GESTURE_GUIDE_LCD_LOCKED : getGestureGuideTypeForPage(page);
}

GestureGuideCounter::GestureGuideCounter(GestureGuideRecordAccess recordAccess)
    : access(std::move(recordAccess))
{
}

bool GestureGuideCounter::admit(int type, bool autoShow)
{
    if (type < 0)
        return false;
    if (type == GESTURE_GUIDE_LCD_LOCKED && autoShow)
        return false;
    const bool hasItems = !GestureGuideOverlayComponent::guideItemsForType(type).isEmpty();
    if (!autoShow)
        return hasItems;
    if (guides_seen.contains(type) || !hasItems)
        return false;
    return admitCounted(type);
}

bool GestureGuideCounter::admitCounted(int type)
{
    nlohmann::json record;
    if (!access.read || access.read(record) < 0)
        return false;
    if (!record.is_object()) {
        LOG_WAR("Gesture guide record is not an object: %s\n", record.dump().c_str());
        return false;
    }
    if (intField(record, "force_show") == 1) {
        guides_seen.insert(type);
        return true;
    }
    const int count = shownCount(record, type);
    if (count >= intField(record, "max_count")) {
        guides_seen.insert(type);
        return false;
    }
    storeShownCount(record, type, count + 1);
    if (!access.write || access.write(record) < 0)
        return false;
    guides_seen.insert(type);
    return true;
}

GestureGuideOverlayComponent::GestureGuideOverlayComponent(QWidget* parent)
    : QWidget(parent), card(new QWidget(this)), auto_hide_timer(new QTimer(this))
{
    setGeometry(0, 0, 640, 172);
    setProperty("class", QStringLiteral("v2-gesture-guide-overlay"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_StyledBackground);

    card->setGeometry(kCardRect);
    card->setAttribute(Qt::WA_StyledBackground);
    makeTransparentChild(card, "v2-gesture-guide-card");

    auto_hide_timer->setSingleShot(true);
    connect(auto_hide_timer, &QTimer::timeout, this, [this] {
        hideGuide();
        emit autoHideTimeout();
    });
    hide();
}

GestureGuideItems GestureGuideOverlayComponent::guideItemsForType(int type)
{
    switch (type) {
    case GESTURE_GUIDE_HOME:
        return {{kSwipeLeftRightIcon, kItemPages},
                {kSwipeUpIcon, kItemMenu},
                {kSwipeDownIcon, kItemApp},
                {kEdgeSwipeIcon, kItemHome},
                {kLongPressIcon, kItemShortcut}};
    case GESTURE_GUIDE_MAIN_MENU:
        return {{kSwipeLeftRightIcon, kItemPages},
                {kSwipeDownIcon, kItemHome},
                {kEdgeSwipeIcon, kItemHome},
                {kLongPressIcon, kItemShortcut}};
    case GESTURE_GUIDE_CONNECT_APP:
        return {{kSwipeUpIcon, kItemHome},
                {kEdgeSwipeIcon, kItemHome},
                {kLongPressIcon, kItemShortcut}};
    case GESTURE_GUIDE_LCD_LOCKED:
        return {{kLongPressIcon, kItemUnlock}};
    default:
        return {};
    }
}

int GestureGuideOverlayComponent::itemWidthForCount(int count)
{
    if (count <= 0)
        return 0;
    return (kItemRowWidth - kItemGap * (count - 1)) / count;
}

void GestureGuideOverlayComponent::showGuide(const GestureGuideItems& items,
                                             const GestureGuideTranslate& translate, int ms)
{
    auto_hide_timer->stop();
    rebuildItems(items, translate);
    if (items.isEmpty()) {
        hide();
        return;
    }
    show();
    raise();
    if (ms > 0)
        auto_hide_timer->start(ms);
}

void GestureGuideOverlayComponent::hideGuide()
{
    auto_hide_timer->stop();
    hide();
}

bool GestureGuideOverlayComponent::dismissByTouch()
{
    if (!isVisible())
        return false;
    hideGuide();
    return true;
}

void GestureGuideOverlayComponent::rebuildItems(const GestureGuideItems& items,
                                                const GestureGuideTranslate& translate)
{
    qDeleteAll(item_widgets);
    item_widgets.clear();
    const int width = itemWidthForCount(items.size());
    for (int i = 0; i < items.size(); ++i)
        item_widgets.append(buildItem(items[i], translate, i, width));
}

QWidget* GestureGuideOverlayComponent::buildItem(const GestureGuideItem& item,
                                                 const GestureGuideTranslate& translate, int index,
                                                 int width)
{
    auto* itemWidget = new QWidget(card);
    itemWidget->setGeometry(kItemRowLeft + index * (width + kItemGap), kItemTop, width,
                            kItemHeight);
    itemWidget->setAttribute(Qt::WA_StyledBackground);
    makeTransparentChild(itemWidget, "v2-gesture-guide-item");

    QLabel* icon = createSvgIconLabel(itemWidget, item.first, QSize(kIconSize, kIconSize),
                                      QStringLiteral("v2-gesture-guide-icon"));
    icon->move((width - kIconSize) / 2, kIconTop);
    icon->setAttribute(Qt::WA_TransparentForMouseEvents);

    auto* label = new QLabel(translate ? translate(item.second) : item.second, itemWidget);
    label->setProperty("class", QStringLiteral("v2-gesture-guide-label"));
    label->setGeometry(kLabelInset, kLabelTop, width - 2 * kLabelInset, kLabelHeight);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);

    itemWidget->show();
    return itemWidget;
}
