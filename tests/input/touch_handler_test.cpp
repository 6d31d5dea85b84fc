// The recogniser around the gestures: which control a touch lands on, which
// widget it filters, and the touch-begin hook that may swallow a sequence.
#include "gesture_rig.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QSlider>

namespace {

const QRect kOk(100, 50, 100, 50); // window pixels 100..199 x 50..99

TEST(HitTest, FindsEnabledVisibleControlsAtTheNearestPixel)
{
    GestureRig rig;
    QPushButton* ok = rig.addButton("ok", kOk);
    auto* icon = new QLabel("icon", ok); // an icon on the button counts as the button
    icon->setGeometry(10, 10, 30, 30);
    icon->show();
    rig.addButton("disabled", QRect(0, 0, 100, 40))->setEnabled(false);
    rig.addButton("hidden", QRect(200, 0, 100, 40))->hide();
    auto* hiddenParent = new QWidget(&rig.window());
    hiddenParent->setGeometry(300, 0, 100, 40);
    rig.addButton("inHiddenParent", QRect(0, 0, 100, 40), hiddenParent);
    hiddenParent->hide();
    QSlider* slider = rig.addSlider("level", QRect(400, 100, 200, 40), &rig.window());
    slider->setEnabled(false);

    // Positions round halves away from zero before the search.
    const std::pair<QPointF, QPushButton*> cases[] = {
        {{115, 65}, ok},        {{99.5, 75}, ok},    {{99.49, 75}, nullptr}, {{199.49, 75}, ok},
        {{199.5, 75}, nullptr}, {{150, 49.5}, ok},   {{150, 99.5}, nullptr}, {{50, 20}, nullptr},
        {{250, 20}, nullptr},   {{350, 20}, nullptr}};
    for (const auto& [pos, button] : cases)
        EXPECT_EQ(rig.handler().buttonAtGlobalPos(pos), button) << pos.x() << ", " << pos.y();
    EXPECT_EQ(rig.handler().sliderAtGlobalPos({500, 120}), nullptr);

    TouchEventHandler detached;
    EXPECT_EQ(detached.buttonAtGlobalPos({150, 75}), nullptr);
    EXPECT_EQ(detached.sliderAtGlobalPos({150, 75}), nullptr);
}

TEST(HitTest, OnlyAnOverlayTransparentForMouseLetsTouchesThrough)
{
    GestureRig rig;
    rig.addButton("ok", kOk);
    auto* overlay = new QWidget(&rig.window());
    overlay->setGeometry(0, 0, 640, 172);
    overlay->setAttribute(Qt::WA_TransparentForMouseEvents);
    overlay->show();
    rig.tap({150, 75});
    overlay->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    rig.tap({150, 75});
    EXPECT_EQ(rig.gestures(), QStringList{"tap:ok"});
}

TEST(Attach, FiltersOnlyTheLatestTargetOnce)
{
    GestureRig rig;
    EXPECT_TRUE(rig.window().testAttribute(Qt::WA_AcceptTouchEvents));
    rig.addButton("ok", kOk);
    rig.handler().attachTo(&rig.window()); // a second attach must not filter twice
    rig.handler().attachTo(nullptr);       // and a null target changes nothing
    rig.tap({150, 75});
    EXPECT_EQ(rig.log(), (QStringList{"touchBegin", "tap:ok"}));

    QWidget other;
    rig.handler().attachTo(&other);
    rig.tap({150, 75});
    EXPECT_EQ(rig.log().size(), 2);
}

TEST(Attach, OtherObjectsAndEventsPassThrough)
{
    GestureRig rig;
    QWidget stranger;
    QTouchEvent begin(QEvent::TouchBegin, GestureRig::device(), Qt::NoModifier,
                      Qt::TouchPointPressed, {touchPoint(0, {10, 10}, Qt::TouchPointPressed)});
    EXPECT_FALSE(rig.handler().eventFilter(&stranger, &begin));
    QResizeEvent resize(QSize(640, 172), QSize(640, 172));
    EXPECT_FALSE(rig.handler().eventFilter(&rig.window(), &resize));
    EXPECT_TRUE(rig.log().isEmpty());
}

// A slot of the begin signal may consume the sequence (the shell does so to
// dismiss an overlay): nothing of it is recognised, and the next is normal.
TEST(TouchBegin, AConsumedSequenceIsSwallowedUpToItsEnd)
{
    for (bool fromTheHook : {true, false}) {
        SCOPED_TRACE(fromTheHook ? "consumed from the hook" : "consumed midway");
        GestureRig rig;
        rig.addButton("ok", kOk);
        bool consume = true;
        QObject::connect(&rig.handler(), &TouchEventHandler::touchBeginDetected, [&] {
            if (consume && fromTheHook)
                rig.handler().consumeCurrentTouchSequence();
        });
        rig.press({150, 75});
        if (!fromTheHook)
            rig.handler().consumeCurrentTouchSequence();
        EXPECT_TRUE(rig.handler().isConsumed());
        EXPECT_FALSE(rig.handler().isActive());
        EXPECT_FALSE(rig.handler().longPressTimer().isActive());
        rig.move({350, 75});
        rig.elapse(1000);
        rig.release({150, 75});
        EXPECT_FALSE(rig.handler().isConsumed());
        EXPECT_TRUE(rig.gestures().isEmpty());

        consume = false;
        rig.tap({150, 75});
        EXPECT_EQ(rig.gestures(), QStringList{"tap:ok"});
    }
}

} // namespace
