// The card itself: layout, texts, and when it goes away.
#include "input/gesture_guide_overlay_component.h"
#include "ui/svg_icon_label.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

namespace {

QString bracketed(const QString& key)
{
    return "[" + key + "]";
}

QString classOf(const QWidget* widget)
{
    return widget->property("class").toString();
}

// The icon and text label inside one item widget.
QLabel* childWithClass(QWidget* item, const char* className)
{
    for (QLabel* label : item->findChildren<QLabel*>())
        if (classOf(label) == className)
            return label;
    return nullptr;
}

class GestureGuideOverlay : public ::testing::Test {
protected:
    void SetUp() override
    {
        parent.resize(640, 172);
        parent.show();
    }

    void showType(int type, int ms = GestureGuideOverlayComponent::kAutoHideMs)
    {
        overlay->showGuide(GestureGuideOverlayComponent::guideItemsForType(type), bracketed, ms);
    }

    // Lets the auto-hide timer run out without waiting for it.
    void expireTimer() { QMetaObject::invokeMethod(overlay->autoHideTimer(), "timeout"); }

    QWidget parent;
    GestureGuideOverlayComponent* overlay = new GestureGuideOverlayComponent(&parent);
};

TEST_F(GestureGuideOverlay, StartsHiddenOverTheWholeStripAndLetsTouchesThrough)
{
    EXPECT_FALSE(overlay->isVisible());
    EXPECT_EQ(overlay->geometry(), QRect(0, 0, 640, 172));
    EXPECT_EQ(classOf(overlay), "v2-gesture-guide-overlay");
    EXPECT_TRUE(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(overlay->guideCard()->geometry(), QRect(10, 24, 620, 124));
    EXPECT_EQ(classOf(overlay->guideCard()), "v2-gesture-guide-card");
    EXPECT_TRUE(overlay->guideCard()->testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(GestureGuideOverlay, ItemWidthSharesTheRowWithGaps)
{
    EXPECT_EQ(GestureGuideOverlayComponent::itemWidthForCount(1), 600);
    EXPECT_EQ(GestureGuideOverlayComponent::itemWidthForCount(3), 194);
    EXPECT_EQ(GestureGuideOverlayComponent::itemWidthForCount(4), 144);
    EXPECT_EQ(GestureGuideOverlayComponent::itemWidthForCount(5), 113);
}

TEST_F(GestureGuideOverlay, LaysOutOneColumnPerGesture)
{
    showType(0);

    ASSERT_TRUE(overlay->isVisible());
    const GestureGuideItems items = GestureGuideOverlayComponent::guideItemsForType(0);
    const QVector<QWidget*>& widgets = overlay->itemWidgets();
    ASSERT_EQ(widgets.size(), 5);
    for (int i = 0; i < widgets.size(); ++i) {
        SCOPED_TRACE(i);
        QWidget* item = widgets[i];
        EXPECT_EQ(item->parentWidget(), overlay->guideCard());
        EXPECT_EQ(item->geometry(), QRect(10 + i * 121, 10, 113, 104));
        EXPECT_EQ(classOf(item), "v2-gesture-guide-item");
        EXPECT_TRUE(item->testAttribute(Qt::WA_TransparentForMouseEvents));

        QLabel* icon = childWithClass(item, "v2-gesture-guide-icon");
        ASSERT_NE(icon, nullptr);
        EXPECT_EQ(icon->geometry(), QRect(34, 9, 44, 44));
        EXPECT_EQ(icon->property("svgPath").toString(), items[i].first);
        EXPECT_TRUE(icon->testAttribute(Qt::WA_TransparentForMouseEvents));

        QLabel* label = childWithClass(item, "v2-gesture-guide-label");
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->geometry(), QRect(4, 58, 105, 44));
        EXPECT_EQ(label->text(), bracketed(items[i].second));
        EXPECT_TRUE(label->wordWrap());
        EXPECT_EQ(label->alignment(), Qt::AlignCenter);
    }
}

TEST_F(GestureGuideOverlay, TheLockGuideIsOneWideItem)
{
    showType(6);

    ASSERT_EQ(overlay->itemWidgets().size(), 1);
    QWidget* item = overlay->itemWidgets().first();
    EXPECT_EQ(item->geometry(), QRect(10, 10, 600, 104));
    EXPECT_EQ(childWithClass(item, "v2-gesture-guide-icon")->geometry(), QRect(278, 9, 44, 44));
    EXPECT_EQ(childWithClass(item, "v2-gesture-guide-label")->text(),
              "[gesture_guide.item_unlock]");
}

TEST_F(GestureGuideOverlay, ANewGuideReplacesTheItemsOfTheLastOne)
{
    showType(0);
    QPointer<QWidget> oldItem = overlay->itemWidgets().first();

    showType(3);

    EXPECT_TRUE(oldItem.isNull());
    EXPECT_EQ(overlay->itemWidgets().size(), 3);
    EXPECT_EQ(
        overlay->guideCard()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).size(),
        3);
}

TEST_F(GestureGuideOverlay, AGuideWithoutItemsHides)
{
    showType(0);
    showType(2);

    EXPECT_FALSE(overlay->isVisible());
    EXPECT_TRUE(overlay->itemWidgets().isEmpty());
    EXPECT_FALSE(overlay->autoHideTimer()->isActive());
}

TEST_F(GestureGuideOverlay, GoesAfterSixSeconds)
{
    QSignalSpy timeouts(overlay, &GestureGuideOverlayComponent::autoHideTimeout);
    showType(1);

    QTimer* timer = overlay->autoHideTimer();
    EXPECT_TRUE(timer->isActive());
    EXPECT_TRUE(timer->isSingleShot());
    EXPECT_EQ(timer->interval(), 6000);
    EXPECT_TRUE(overlay->isVisible());

    expireTimer();

    EXPECT_FALSE(overlay->isVisible());
    EXPECT_EQ(timeouts.count(), 1);
}

TEST_F(GestureGuideOverlay, ShowingAgainRestartsTheTimer)
{
    showType(0, 5000);
    showType(0, 3000);
    EXPECT_EQ(overlay->autoHideTimer()->interval(), 3000);
    EXPECT_TRUE(overlay->autoHideTimer()->isActive());
}

TEST_F(GestureGuideOverlay, StaysWithoutATimeWhenNoneIsGiven)
{
    showType(0, 0);
    EXPECT_TRUE(overlay->isVisible());
    EXPECT_FALSE(overlay->autoHideTimer()->isActive());
}

TEST_F(GestureGuideOverlay, TheNextTouchDismissesAndIsUsedUp)
{
    showType(0);

    EXPECT_TRUE(overlay->dismissByTouch());
    EXPECT_FALSE(overlay->isVisible());
    EXPECT_FALSE(overlay->autoHideTimer()->isActive());

    EXPECT_FALSE(overlay->dismissByTouch()); // nothing to dismiss: the touch goes on
}

TEST_F(GestureGuideOverlay, HideStopsThePendingTimeout)
{
    QSignalSpy timeouts(overlay, &GestureGuideOverlayComponent::autoHideTimeout);
    showType(0);

    overlay->hideGuide();

    EXPECT_FALSE(overlay->isVisible());
    EXPECT_FALSE(overlay->autoHideTimer()->isActive());
    EXPECT_EQ(timeouts.count(), 0);
}

TEST_F(GestureGuideOverlay, IsRaisedAboveItsSiblings)
{
    auto* sibling = new QWidget(&parent);
    sibling->show();
    showType(0);
    EXPECT_EQ(parent.children().last(), overlay);
}

} // namespace
