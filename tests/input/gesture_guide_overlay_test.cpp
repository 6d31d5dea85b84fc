// The guide card: its columns, its texts, and when it goes away.
#include "input/gesture_guide_overlay_component.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

#include <functional>

namespace {

QString bracketed(const QString& key)
{
    return "[" + key + "]";
}

QString classOf(const QWidget* widget)
{
    return widget->property("class").toString();
}

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
    QTimer* timer() const { return overlay->autoHideTimer(); }

    QWidget parent;
    GestureGuideOverlayComponent* overlay = new GestureGuideOverlayComponent(&parent);
};

// A card over the whole strip that lets every touch through; n columns share
// 600 pixels with 8-pixel gaps.
TEST_F(GestureGuideOverlay, OneColumnPerGestureWithIconAboveText)
{
    EXPECT_FALSE(overlay->isVisible());
    EXPECT_EQ(overlay->geometry(), QRect(0, 0, 640, 172));
    EXPECT_EQ(overlay->guideCard()->geometry(), QRect(10, 24, 620, 124));
    for (QWidget* w : {static_cast<QWidget*>(overlay), overlay->guideCard()})
        EXPECT_TRUE(w->testAttribute(Qt::WA_TransparentForMouseEvents));
    const std::pair<int, int> typeAndWidth[] = {{0, 113}, {3, 194}, {6, 600}};
    for (const auto& [type, width] : typeAndWidth) {
        SCOPED_TRACE(type);
        auto* sibling = new QWidget(&parent);
        sibling->show();
        showType(type);
        ASSERT_TRUE(overlay->isVisible());
        EXPECT_EQ(parent.children().last(), overlay) << "raised above its siblings";
        const GestureGuideItems items = GestureGuideOverlayComponent::guideItemsForType(type);
        const QVector<QWidget*>& widgets = overlay->itemWidgets();
        ASSERT_EQ(widgets.size(), items.size());
        EXPECT_EQ(
            overlay->guideCard()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly),
            QList<QWidget*>(widgets.begin(), widgets.end()))
            << "the last guide's columns are gone";
        for (int i = 0; i < widgets.size(); ++i) {
            QWidget* item = widgets[i];
            EXPECT_EQ(item->geometry(), QRect(10 + i * (width + 8), 10, width, 104));
            EXPECT_EQ(classOf(item), "v2-gesture-guide-item");
            QLabel* icon = childWithClass(item, "v2-gesture-guide-icon");
            QLabel* label = childWithClass(item, "v2-gesture-guide-label");
            ASSERT_TRUE(icon && label);
            EXPECT_EQ(icon->geometry(), QRect((width - 44) / 2, 9, 44, 44));
            EXPECT_EQ(icon->property("svgPath").toString(), items[i].first);
            EXPECT_EQ(label->geometry(), QRect(4, 58, width - 8, 44));
            EXPECT_EQ(label->text(), bracketed(items[i].second));
            EXPECT_TRUE(label->wordWrap());
            EXPECT_EQ(label->alignment(), Qt::AlignCenter);
            for (QWidget* w : {item, static_cast<QWidget*>(icon)})
                EXPECT_TRUE(w->testAttribute(Qt::WA_TransparentForMouseEvents));
        }
    }
}

// Six seconds, restarted by each showing, none when no time is given; every
// other way of going stops the timer.
TEST_F(GestureGuideOverlay, GoesAfterItsTimeOrEarlier)
{
    QSignalSpy timeouts(overlay, &GestureGuideOverlayComponent::autoHideTimeout);
    showType(1, 5000);
    showType(1);
    EXPECT_TRUE(timer()->isActive());
    EXPECT_TRUE(timer()->isSingleShot());
    EXPECT_EQ(timer()->interval(), 6000);
    QMetaObject::invokeMethod(timer(), "timeout");
    EXPECT_FALSE(overlay->isVisible());
    EXPECT_EQ(timeouts.count(), 1);
    showType(0, 0);
    EXPECT_TRUE(overlay->isVisible());
    EXPECT_FALSE(timer()->isActive());

    const std::pair<const char*, std::function<void()>> ways[] = {
        {"the next touch", [&] { EXPECT_TRUE(overlay->dismissByTouch()); }},
        {"hide", [&] { overlay->hideGuide(); }},
        {"a guide without items", [&] { showType(2); }},
    };
    for (const auto& [name, go] : ways) {
        SCOPED_TRACE(name);
        showType(0);
        QPointer<QWidget> column = overlay->itemWidgets().first();
        go();
        EXPECT_FALSE(overlay->isVisible());
        EXPECT_FALSE(timer()->isActive());
        EXPECT_EQ(column.isNull(), overlay->itemWidgets().isEmpty());
    }
    EXPECT_EQ(timeouts.count(), 1);
    EXPECT_FALSE(overlay->dismissByTouch()) << "nothing left to dismiss: the touch goes on";
}

} // namespace
