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

// A card over the whole strip, raised above its siblings, that lets every
// touch through; one column per gesture, its icon and its text.
TEST_F(GestureGuideOverlay, OneColumnPerGestureWithIconAndText)
{
    EXPECT_FALSE(overlay->isVisible());
    EXPECT_EQ(overlay->geometry(), QRect(0, 0, 640, 172));
    for (int type : {0, 6}) {
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
            QLabel* icon = childWithClass(widgets[i], "v2-gesture-guide-icon");
            QLabel* label = childWithClass(widgets[i], "v2-gesture-guide-label");
            ASSERT_TRUE(icon && label);
            EXPECT_EQ(icon->property("svgPath").toString(), items[i].first);
            EXPECT_EQ(label->text(), bracketed(items[i].second));
        }
        QList<QWidget*> all = overlay->findChildren<QWidget*>();
        all << overlay;
        for (QWidget* w : all)
            EXPECT_TRUE(w->testAttribute(Qt::WA_TransparentForMouseEvents))
                << classOf(w).toStdString();
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
