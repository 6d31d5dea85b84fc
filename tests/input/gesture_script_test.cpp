// Whole touch sequences and the gestures they make, at the thresholds: tap
// (under 10 px and 800 ms), long press (800 ms, cancelled past 36 px), swipe
// (over 15 px, under 900 ms, outside the 45-degree cones), the edge swipe
// (tested before the direction), cancels, extra fingers and sliders.
#include "gesture_rig.h"

#include <gtest/gtest.h>

#include <QSlider>

namespace {

// The button "ok" covers window pixels 100..199 x 50..99. The slider page
// lies below the 30-pixel status bar; its slider "level" (0..100) sits at 64,
// 52 in the page and is 512 wide, so its track spans window x 64..576, y
// 82..118. The shifted page is 40 pixels further right.
enum Layout { kButton, kSliderPage, kShiftedSliderPage };

struct Script {
    Layout layout;
    const char* name;
    // Steps: "press x,y", "move x,y", "fingers id:x,y;id:x,y" (one update),
    // "wait ms", "release x,y", "cancel x,y" (a cancel carrying that point),
    // "timeout" (a stray long-press timeout), "slider n" (the slider's own
    // value changes).
    const char* steps;
    const char* gestures; // blank-separated, as the rig logs them
};

QPointF pointOf(const QString& text)
{
    const QStringList xy = text.split(',');
    return {xy.value(0).toDouble(), xy.value(1).toDouble()};
}

void run(GestureRig& rig, const Script& script)
{
    QSlider* slider = nullptr;
    if (script.layout == kButton) {
        rig.addButton("ok", QRect(100, 50, 100, 50));
    } else {
        auto* page = new QWidget(&rig.window());
        page->setGeometry(script.layout == kShiftedSliderPage ? 40 : 0, 30, 640, 142);
        page->show();
        slider = rig.addSlider("level", QRect(64, 52, 512, 36), page);
    }
    const QStringList words = QString(script.steps).split(' ', Qt::SkipEmptyParts);
    for (int i = 0; i < words.size(); ++i) {
        const QString& step = words[i];
        const QString arg = step == "timeout" ? QString() : words.value(++i);
        if (step == "press") {
            rig.press(pointOf(arg));
        } else if (step == "move") {
            rig.move(pointOf(arg));
        } else if (step == "fingers") {
            QList<std::pair<int, QPointF>> fingers;
            for (const QString& finger : arg.split(';'))
                fingers.append(
                    {finger.section(':', 0, 0).toInt(), pointOf(finger.section(':', 1))});
            rig.moveFingers(fingers);
        } else if (step == "wait") {
            rig.elapse(arg.toLongLong());
        } else if (step == "release") {
            rig.release(pointOf(arg));
        } else if (step == "cancel") {
            rig.cancel(pointOf(arg));
        } else if (step == "timeout") {
            rig.handler().handleLongPress();
        } else if (step == "slider") {
            slider->setValue(arg.toInt());
        } else {
            FAIL() << "unknown step " << step.toStdString();
        }
    }
}

const Script kScripts[] = {
    // Taps on the button.
    {kButton, "tap just under both limits", "press 150,75 wait 799 release 159.9,75", "tap:ok"},
    {kButton, "tap moved diagonally", "press 150,75 wait 100 release 155,70.1", "tap:ok"},
    {kButton, "10 px diagonally is no tap", "press 150,75 wait 100 release 145,80", ""},
    {kButton, "tap on nothing", "press 400,75 wait 50 release 400,75", ""},
    {kButton, "a second press starts afresh",
     "press 500,80 wait 700 press 150,75 wait 200 release 150,75", "tap:ok"},

    // Long presses fire once, at 800 ms, and the release is no tap then.
    {kButton, "long press on the button", "press 150,75 wait 800 timeout wait 400 release 150,75",
     "buttonLongPress:ok"},
    {kButton, "long press after 36 px reports the press position",
     "press 300,80 move 320,96 wait 800 release 320,96", "longPress:(300,80)"},
    {kButton, "37 px cancel the long press for good",
     "press 300,80 move 320,97 move 300,80 wait 800 timeout release 300,80", ""},
    {kButton, "wandering back nearer than 10 px taps",
     "press 150,75 move 150,112 wait 300 move 159,75 wait 300 release 159,75", "tap:ok"},
    {kButton, "wandering back to 10 px is nothing",
     "press 150,75 move 150,112 wait 300 move 150,65 wait 300 release 150,65", ""},
    {kButton, "a swipe may follow a long press before 900 ms",
     "press 300,80 move 320,80 wait 850 release 320,80", "longPress:(300,80) swipeRight"},
    {kButton, "no swipe after a long press at 900 ms",
     "press 300,80 move 320,80 wait 900 release 320,80", "longPress:(300,80)"},

    // Swipes: under 900 ms, and the edge swipe tested before the direction.
    {kButton, "left within 899 ms", "press 320,86 move 220,86 wait 899 release 220,86",
     "swipeLeft"},
    {kButton, "left at 900 ms", "press 320,86 move 220,86 wait 900 release 220,86", ""},
    {kButton, "edge within 899 ms", "press 50,86 move 350,86 wait 899 release 350,86", "edgeSwipe"},
    {kButton, "edge at 900 ms", "press 50,86 move 350,86 wait 900 release 350,86", ""},
    {kButton, "edge too steep is a swipe down", "press 50,0 move 350,400 wait 300 release 350,400",
     "swipeDown"},
    {kButton, "left band going left", "press 50,86 move 10,86 wait 300 release 10,86", "swipeLeft"},

    // A cancel is classified as an end from the last tracked position; the
    // point it carries is ignored.
    {kButton, "cancel after a small move taps", "press 150,75 move 154,78 wait 500 cancel 600,160",
     "tap:ok"},
    {kButton, "cancel after a move up swipes", "press 300,80 move 300,20 wait 200 cancel 300,160",
     "swipeUp"},
    {kButton, "nothing without a press", "move 300,80 release 400,80 cancel 400,80", ""},

    // Extra fingers: a second one is ignored; a lost finger is replaced by
    // the one nearest to the last position.
    {kButton, "second finger ignored", "press 300,86 fingers 1:300,10;0:400,86 wait 100 cancel 0,0",
     "swipeRight"},
    {kButton, "lost finger followed by the nearest",
     "press 300,86 move 350,86 fingers 5:100,86;6:360,90 fingers 5:100,86;6:420,90 wait 100 "
     "cancel 0,0",
     "swipeRight"},

    // Sliders: the value comes from the press position on a tap and from
    // every update of a drag that began on the slider; a release after a
    // drag reports the slider's own value, never a swipe.
    {kSliderPage, "slider tap", "press 320,100 wait 50 release 329,100",
     "sliderValue:level=50 sliderTap:level=50"},
    {kShiftedSliderPage, "slider edge taken in its parent's coordinates",
     "press 360,100 release 360,100", "sliderValue:level=57 sliderTap:level=57"},
    {kSliderPage, "drag, even off the slider",
     "press 192,100 move 320,100 move 320,100 move 448,100 move 500,10 move 630,160 move 5,100 "
     "slider 42 wait 100 release 5,100",
     "sliderValue:level=50 sliderValue:level=50 sliderValue:level=75 sliderValue:level=85 "
     "sliderValue:level=100 sliderValue:level=0 sliderRelease:level=42"},
    {kSliderPage, "long drag", "press 192,100 move 192,10 slider 42 wait 5000 release 192,10",
     "sliderValue:level=25 sliderRelease:level=42"},
    {kSliderPage, "10 px drag", "press 192,100 wait 100 release 202,100", "sliderRelease:level=0"},
    {kSliderPage, "drag from off the slider",
     "press 320,40 move 320,100 move 400,100 wait 100 release 400,100", "swipeRight"},
    {kSliderPage, "held still on the slider", "slider 7 press 320,100 wait 1000 release 320,100",
     "longPress:(320,100) sliderRelease:level=7"},
};

TEST(GestureScript, EverySequenceMakesItsGestures)
{
    for (const Script& script : kScripts) {
        SCOPED_TRACE(script.name);
        GestureRig rig;
        run(rig, script);
        EXPECT_EQ(rig.gestures(), QString(script.gestures).split(' ', Qt::SkipEmptyParts));
        // Each script ends its sequence, which leaves nothing tracked.
        EXPECT_FALSE(rig.handler().isActive());
        EXPECT_EQ(rig.handler().trackedId(), -1);
        EXPECT_FALSE(rig.handler().longPressTimer().isActive());
    }
}

} // namespace
