// Taps: which touches count, and which button they land on.
#include "gesture_rig.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

namespace {

const QRect kOkGeometry(100, 50, 100, 50);
const QPointF kOnOk(150, 75);
const QPointF kOffControls(400, 75);

struct TapCase {
    const char* name;
    QPointF start;
    QPointF offset;
    qint64 durationMs;
    QStringList expected;
};

void PrintTo(const TapCase& c, std::ostream* os)
{
    *os << c.name;
}

class TapThresholds : public ::testing::TestWithParam<TapCase> {};

TEST_P(TapThresholds, ClassifiesRelease)
{
    const TapCase& c = GetParam();
    GestureRig rig;
    rig.addButton("ok", kOkGeometry);
    rig.tap(c.start, c.durationMs, c.offset);
    EXPECT_EQ(rig.log().gestures(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    DistanceAndTime, TapThresholds,
    ::testing::Values(TapCase{"still", kOnOk, {0, 0}, 0, {"tap:ok"}},
                      TapCase{"justUnderLimits", kOnOk, {9.9, 0}, 799, {"tap:ok"}},
                      TapCase{"diagonalUnder", kOnOk, {5, -4.9}, 100, {"tap:ok"}},
                      TapCase{"tenPixels", kOnOk, {10, 0}, 100, {}},
                      TapCase{"tenPixelsDiagonal", kOnOk, {-5, 5}, 100, {}},
                      TapCase{"movedLikeASwipe", kOnOk, {16, 0}, 100, {"swipeRight"}},
                      TapCase{"heldTooLong", kOnOk, {0, 0}, 800, {"buttonLongPress:ok"}},
                      TapCase{"onNothing", kOffControls, {0, 0}, 50, {}}),
    [](const ::testing::TestParamInfo<TapCase>& info) { return std::string(info.param.name); });

TEST(Tap, LabelLyingOnAButtonCountsAsTheButton)
{
    GestureRig rig;
    QPushButton* ok = rig.addButton("ok", kOkGeometry);
    auto* icon = new QLabel("icon", ok);
    icon->setGeometry(10, 10, 30, 30);
    icon->show();

    QSignalSpy taps(&rig.handler(), &TouchEventHandler::buttonTapDetected);
    rig.tap({115, 65});
    ASSERT_EQ(taps.count(), 1);
    EXPECT_EQ(taps.at(0).at(0).value<QPushButton*>(), ok);
}

TEST(Tap, DisabledOrHiddenButtonsAreNotFound)
{
    GestureRig rig;
    rig.addButton("disabled", QRect(0, 0, 100, 50))->setEnabled(false);
    rig.addButton("hidden", QRect(100, 0, 100, 50))->hide();
    auto* hiddenParent = new QWidget(&rig.window());
    hiddenParent->setGeometry(200, 0, 200, 100);
    rig.addButton("inHiddenParent", QRect(0, 0, 100, 50), hiddenParent);
    hiddenParent->hide();

    QSignalSpy taps(&rig.handler(), &TouchEventHandler::buttonTapDetected);
    for (const QPointF pos : {QPointF(50, 25), QPointF(150, 25), QPointF(250, 25)})
        rig.tap(pos);
    EXPECT_EQ(taps.count(), 0);
    EXPECT_EQ(rig.handler().buttonAtGlobalPos({50, 25}), nullptr);
}

TEST(Tap, OverlayTransparentForMouseLetsTheTouchThrough)
{
    GestureRig rig;
    rig.addButton("ok", kOkGeometry);
    auto* overlay = new QWidget(&rig.window());
    overlay->setGeometry(0, 0, 640, 172);
    overlay->setAttribute(Qt::WA_TransparentForMouseEvents);
    overlay->show();
    overlay->raise();

    rig.tap(kOnOk);
    EXPECT_EQ(rig.log().gestures(), QStringList{"tap:ok"});

    overlay->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    rig.log().clear();
    rig.tap(kOnOk);
    EXPECT_EQ(rig.log().gestures(), QStringList{});
}

struct HitCase {
    QPointF pos;
    bool onButton;
};

class ButtonHitTest : public ::testing::TestWithParam<HitCase> {};

// Positions round to the nearest pixel, halves away from zero, before the
// widget search; the button covers pixels 100..199 and 50..99.
TEST_P(ButtonHitTest, RoundsToTheNearestPixel)
{
    GestureRig rig;
    QPushButton* ok = rig.addButton("ok", kOkGeometry);
    const HitCase& c = GetParam();
    EXPECT_EQ(rig.handler().buttonAtGlobalPos(c.pos), c.onButton ? ok : nullptr)
        << c.pos.x() << ", " << c.pos.y();
}

INSTANTIATE_TEST_SUITE_P(Edges, ButtonHitTest,
                         ::testing::Values(HitCase{{99.5, 75}, true}, HitCase{{99.49, 75}, false},
                                           HitCase{{199.49, 75}, true}, HitCase{{199.5, 75}, false},
                                           HitCase{{150, 49.5}, true},
                                           HitCase{{150, 99.5}, false}));

TEST(Tap, HitTestsNeedAnAttachedTarget)
{
    TouchEventHandler detached;
    EXPECT_EQ(detached.buttonAtGlobalPos({10, 10}), nullptr);
    EXPECT_EQ(detached.sliderAtGlobalPos({10, 10}), nullptr);
}

} // namespace
