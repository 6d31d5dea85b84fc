// Sliders never see a press of their own: taps, drags and releases on them
// are reported with the value computed from the finger.
#include "gesture_rig.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QSlider>

namespace {

// As on the slider page: a page below the 30-pixel status bar, the slider at
// 64, 52 in it and 512 wide, so the track spans window x 64..576, y 82..118.
struct SliderPage {
    explicit SliderPage(GestureRig& rig, int pageLeft = 0)
    {
        page = new QWidget(&rig.window());
        page->setGeometry(pageLeft, 30, 640, 142);
        page->show();
        slider = rig.addSlider("level", QRect(64, 52, 512, 36), 0, 100, page);
    }
    QWidget* page;
    QSlider* slider;
};

const qreal kTrackY = 100;

TEST(SliderTap, ReportsTheValueUnderTheFingerThenTheTap)
{
    GestureRig rig;
    SliderPage sliderPage(rig);
    rig.tap({320, kTrackY});
    EXPECT_EQ(rig.log().gestures(), (QStringList{"sliderValue:level=50", "sliderTap:level=50"}));
}

TEST(SliderTap, UsesThePressPositionNotTheRelease)
{
    GestureRig rig;
    SliderPage sliderPage(rig);
    rig.tap({320, kTrackY}, 50, {9, 0});
    EXPECT_EQ(rig.log().gestures(), (QStringList{"sliderValue:level=50", "sliderTap:level=50"}));
}

TEST(SliderTap, SliderEdgeIsTakenInItsParentsCoordinates)
{
    // The page is shifted 40 pixels right: the hit test still finds the
    // slider, but the value subtracts the slider's left edge in the page (64)
    // from the window position, unmapped: (360 - 64) * 100 / 512.
    GestureRig rig;
    SliderPage sliderPage(rig, 40);
    rig.tap({360, kTrackY});
    EXPECT_EQ(rig.log().gestures(), (QStringList{"sliderValue:level=57", "sliderTap:level=57"}));
}

TEST(SliderTap, DisabledSliderIsNotFound)
{
    GestureRig rig;
    SliderPage sliderPage(rig);
    sliderPage.slider->setEnabled(false);
    rig.tap({320, kTrackY});
    EXPECT_EQ(rig.log().gestures(), QStringList{});
    EXPECT_EQ(rig.handler().sliderAtGlobalPos({320, kTrackY}), nullptr);
}

TEST(SliderDrag, EveryUpdateReportsAValueEvenOffTheSlider)
{
    GestureRig rig;
    SliderPage sliderPage(rig);
    QSignalSpy values(&rig.handler(), &TouchEventHandler::sliderValueChangedDetected);

    rig.press({192, kTrackY});
    for (const QPointF pos : {QPointF(320, kTrackY), QPointF(320, kTrackY), QPointF(448, kTrackY),
                              QPointF(500, 10), QPointF(630, 160), QPointF(5, kTrackY)})
        rig.move(pos);

    QList<int> reported;
    for (const QList<QVariant>& args : values) {
        EXPECT_EQ(args.at(0).value<QSlider*>(), sliderPage.slider);
        reported << args.at(1).toInt();
    }
    EXPECT_EQ(reported, (QList<int>{50, 50, 75, 85, 100, 0}));
}

TEST(SliderDrag, DragStartingOffTheSliderNeverMovesIt)
{
    GestureRig rig;
    SliderPage sliderPage(rig);
    QSignalSpy values(&rig.handler(), &TouchEventHandler::sliderValueChangedDetected);
    rig.press({320, 40});
    rig.move({320, kTrackY});
    rig.move({400, kTrackY});
    EXPECT_EQ(values.count(), 0);
}

struct ReleaseCase {
    qint64 durationMs;
    QPointF to;
};

class SliderRelease : public ::testing::TestWithParam<ReleaseCase> {};

// However long or far the drag, its release reports the slider's present
// value (as set by whoever handled the drag) and never a swipe.
TEST_P(SliderRelease, ReportsTheSlidersOwnValue)
{
    GestureRig rig;
    SliderPage sliderPage(rig);
    rig.press({192, kTrackY});
    rig.move(GetParam().to);
    sliderPage.slider->setValue(42);
    rig.log().clear();
    rig.elapse(GetParam().durationMs);
    rig.release(GetParam().to);
    EXPECT_EQ(rig.log().gestures(), QStringList{"sliderRelease:level=42"});
}

INSTANTIATE_TEST_SUITE_P(Drags, SliderRelease,
                         ::testing::Values(ReleaseCase{100, {500, kTrackY}},
                                           ReleaseCase{100, {192, 10}},
                                           ReleaseCase{5000, {500, kTrackY}},
                                           ReleaseCase{100, {202, kTrackY}}));

TEST(SliderRelease, HeldStillPastTheLongPressIsALongPressThenARelease)
{
    GestureRig rig;
    SliderPage sliderPage(rig);
    sliderPage.slider->setValue(7);
    rig.tap({320, kTrackY}, 1000);
    EXPECT_EQ(rig.log().gestures(), (QStringList{"longPress:(320,100)", "sliderRelease:level=7"}));
}

} // namespace
