// Touches delivered by the window system, as on the device, rather than sent
// straight to the window.
#include "gesture_rig.h"

#include <gtest/gtest.h>

#include <QTest>

namespace {

class PlatformDelivery : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowExposed(&rig.window())); }
    QTest::QTouchEventSequence touch()
    {
        return QTest::touchEvent(&rig.window(), GestureRig::device());
    }
    GestureRig rig;
};

TEST_F(PlatformDelivery, TapOnAButtonIsReported)
{
    rig.addButton("ok", QRect(100, 50, 100, 50));
    touch().press(0, QPoint(150, 75), &rig.window());
    rig.elapse(60);
    touch().release(0, QPoint(152, 76), &rig.window());
    EXPECT_EQ(rig.log().all(), (QStringList{"touchBegin", "tap:ok"}));
}

TEST_F(PlatformDelivery, SwipeWithUpdatesIsRecognised)
{
    touch().press(0, QPoint(400, 86), &rig.window());
    touch().move(0, QPoint(350, 88), &rig.window());
    touch().move(0, QPoint(250, 90), &rig.window());
    rig.elapse(200);
    touch().release(0, QPoint(240, 90), &rig.window());
    EXPECT_EQ(rig.log().gestures(), QStringList{"swipeLeft"});
}

} // namespace
