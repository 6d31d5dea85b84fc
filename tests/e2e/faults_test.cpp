// A backend that misbehaves: refused or empty replies, replies that never
// come, topics that stop or carry garbage, a daemon that dies and comes back,
// or isn't there at the start. The panel must go on running, say what went
// wrong, and pick up the device again once it answers.
#include "eventually.h"
#include "operation_card.h"
#include "page_walk.h"
#include "panel_test.h"
#include "screen_analysis.h"
#include "screen_points.h"

#include "pages/page_ids.h"

#include <regex>

namespace e2e {
namespace {

// How long the panel may take to act while its backend is gone or hangs: the
// requests it still makes on its GUI thread (gesture guide records) wait
// for the poller's timed-out requests first.
constexpr auto kPatience = 20s;

// The topics the panel subscribes, by the simulator's short names.
const char* const kTopics[] = {"network", "cpu",    "storage", "system", "upgrade",
                               "video",   "record", "stream",  "osd"};

class Faults : public PanelTest {
protected:
    // The LCD lock is the control these tests break: a synchronous request
    // whose result shows on the card and, on success, sends the panel home.
    // `before` gets the page as it was before the tap.
    void tapLcdLock(QImage* before = nullptr)
    {
        ASSERT_EQ(rig->pageAfter("goto 14", kPatience), PAGE_CAMERA_SETTINGS_3);
        if (before)
            *before = rig->screen().fresh(kPatience);
        rig->tap(point::kCardLeft);
    }

    // The panel still runs, answers on its pipe and draws its pages.
    void expectPanelAlive()
    {
        ASSERT_TRUE(rig->panelRunning()) << "the panel died";
        const int page = rig->currentPage(kPatience);
        EXPECT_NE(page, PanelRig::kNoAnswer) << "the panel doesn't answer";
        const QImage picture = rig->screen().fresh(kPatience);
        ASSERT_FALSE(picture.isNull()) << "the panel stopped drawing";
        EXPECT_FALSE(isBlank(picture));
    }

    // Topics reach the panel again: a work mode change of the device
    // reshapes the home group.
    void expectTopicsFlow(int work_mode)
    {
        ASSERT_TRUE(rig->sim().ok("workmode " + std::to_string(work_mode)));
        const int right_of_home =
            work_mode == 1 ? PAGE_DECODER_SHORTCUT_1 : PAGE_ENCODER_SHORTCUT_1;
        EXPECT_TRUE(eventually(
            [&] {
                rig->send("edge");
                return rig->pageAfter("swipe right") == right_of_home;
            },
            15s, 300ms))
            << "the device's work mode " << work_mode << " never reached the panel";
    }

    // Requests reach the device again: the LCD lock works.
    void expectRequestsWork()
    {
        ASSERT_NO_FATAL_FAILURE(tapLcdLock());
        EXPECT_TRUE(deviceReaches(*rig, "/lcd/lock_stat", 1, 15s))
            << "the lock request never arrived";
        EXPECT_EQ(rig->waitForPage(PAGE_STATUS_1), PAGE_STATUS_1);
        ASSERT_TRUE(rig->sim().set("/lcd/lock_stat", 0));
    }
};

TEST_F(Faults, BrokenRepliesToAControlShowAFailureAndChangeNothing)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    // A refusal with an error code, an empty reply, and a reply held longer
    // than the panel waits.
    for (const char* fault :
         {"status set_lcd_info 80006", "empty set_lcd_info", "hang set_lcd_info 5000"}) {
        SCOPED_TRACE(fault);
        ASSERT_TRUE(rig->sim().ok(fault));
        QImage page;
        ASSERT_NO_FATAL_FAILURE(tapLcdLock(&page));
        EXPECT_TRUE(waitForCard(*rig, CardLook::Failure, page, 15s)) << "no failure card";
        EXPECT_EQ(rig->sim().get("/lcd/lock_stat"), json(0));
        EXPECT_EQ(rig->currentPage(), PAGE_CAMERA_SETTINGS_3) << "a failed lock left the page";
        ASSERT_TRUE(rig->sim().ok("clear set_lcd_info"));
        ASSERT_TRUE(waitForCardGone(*rig, page));
    }
    // The same control works once the device answers properly.
    ASSERT_NO_FATAL_FAILURE(expectRequestsWork());
}

TEST_F(Faults, SilentAndHangingDaemonLeavesThePanelUsable)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    for (const char* topic : kTopics)
        ASSERT_TRUE(rig->sim().ok(std::string("silence ") + topic));
    ASSERT_TRUE(rig->sim().ok("hang * 4000"));

    // The pages still move.
    const std::vector<WalkStep> walk = {
        {"swipe left", PAGE_STATUS_2},
        {"goto 9", PAGE_NETWORK_SETTINGS_1},
        {"swipe left", PAGE_NETWORK_SETTINGS_2},
        {"edge", PAGE_STATUS_1},
        {"swipe right", PAGE_ENCODER_SHORTCUT_1},
        {"edge", PAGE_STATUS_1},
    };
    ASSERT_NO_FATAL_FAILURE(expectWalk(*rig, walk, kPatience));
    ASSERT_NO_FATAL_FAILURE(expectPanelAlive());

    // Back to normal: the panel follows the device again.
    ASSERT_TRUE(rig->sim().ok("clear all"));
    for (const char* topic : kTopics)
        ASSERT_TRUE(rig->sim().ok(std::string("unsilence ") + topic));
    ASSERT_NO_FATAL_FAILURE(expectTopicsFlow(1));
}

TEST_F(Faults, MalformedAndMisshapenTopicsAreIgnored)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QImage status = rig->screen().fresh();
    for (const char* topic : kTopics) {
        ASSERT_TRUE(rig->sim().ok(std::string("topic-malformed ") + topic));
        ASSERT_TRUE(rig->sim().ok(std::string("topic-wrong-shape ") + topic));
        ASSERT_TRUE(rig->sim().ok(std::string("topic-raw ") + topic + " not json at all"));
        ASSERT_TRUE(rig->sim().ok(std::string("topic-raw ") + topic + " []"));
    }
    ASSERT_NO_FATAL_FAILURE(expectPanelAlive());
    // The status page still shows the device, as much of it as before.
    const QImage after = rig->screen().fresh();
    EXPECT_LT(changedShare(status, after, area::kContent), 0.2)
        << "garbage topics wiped the status page";
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_STATUS_2);
    ASSERT_NO_FATAL_FAILURE(expectTopicsFlow(1));
}

TEST_F(Faults, SimulatorKilledAndRestartedIsPickedUpAgain)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    rig->killSimulator();

    // Without its daemons the panel still runs and navigates.
    const std::vector<WalkStep> walk = {
        {"swipe left", PAGE_STATUS_2},
        {"goto 5", PAGE_SYSTEM_SETTINGS_1},
        {"swipe left", PAGE_SYSTEM_SETTINGS_2},
        {"edge", PAGE_STATUS_1},
    };
    ASSERT_NO_FATAL_FAILURE(expectWalk(*rig, walk, kPatience));
    // A control with nobody to answer fails visibly.
    QImage page;
    ASSERT_NO_FATAL_FAILURE(tapLcdLock(&page));
    EXPECT_TRUE(waitForCard(*rig, CardLook::Failure, page, 15s)) << "no failure card";
    ASSERT_NO_FATAL_FAILURE(expectPanelAlive());
    ASSERT_TRUE(waitForCardGone(*rig, page));

    // The daemons come back on the same endpoints.
    ASSERT_NO_THROW(rig->startSimulator());
    ASSERT_NO_FATAL_FAILURE(expectRequestsWork());
    ASSERT_NO_FATAL_FAILURE(expectTopicsFlow(1));
}

TEST_F(Faults, StartsWithoutTheBackendAndConnectsWhenItComes)
{
    rig = std::make_unique<PanelRig>(encodeDevice());
    ASSERT_NO_THROW(rig->startPanel());
    // The splash waits for data, then gives up and shows the defaults; the
    // first-use flag can't be read, so the connect page comes first.
    EXPECT_TRUE(rig->panelLog().waitForLine(std::regex("Splash wait timeout after"), 1s));
    EXPECT_EQ(rig->currentPage(kPatience), PAGE_CONNECT_APP);

    ASSERT_NO_THROW(rig->startSimulator());
    ASSERT_NO_FATAL_FAILURE(expectTopicsFlow(1));
    ASSERT_NO_FATAL_FAILURE(expectRequestsWork());
    ASSERT_NO_FATAL_FAILURE(expectPanelAlive());
}

} // namespace
} // namespace e2e
