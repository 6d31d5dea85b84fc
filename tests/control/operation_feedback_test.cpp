// The window's feedback calls on top of the card: translation, the lock
// statuses' guide, touches against loading, result and gated cards.
#include "control/manual_time_source.h"
#include "control/operation_feedback.h"
#include "control_test_kit.h"

#include <QLabel>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace controltest;

namespace {

class Feedback : public ::testing::Test {
protected:
    OverlayHost host;
    ManualTimeSource time;
    OperationFeedback feedback{host.overlay, englishTranslate(), time};

    QString shownText() const { return host.overlay->textLabel()->text(); }
};

} // namespace

TEST_F(Feedback, LoadingCardShowsTheLoadingTextAndNeedsTranslation)
{
    feedback.showOperationLoading();
    EXPECT_TRUE(feedback.isOperationInProgress());
    EXPECT_EQ(shownText(), english("point_info.loading"));

    feedback.hideOperationOverlay();
    feedback.setTranslate(nullptr);
    feedback.showOperationLoading();
    EXPECT_FALSE(feedback.isOperationOverlayActive());
}

TEST_F(Feedback, ResultFormsPickTextAndCardKind)
{
    feedback.showOperationResult(-5);
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("point_info.disk_full"));
    feedback.showOperationResult(true);
    EXPECT_EQ(host.overlay->state(), OPERATION_SUCCESS);
    EXPECT_EQ(shownText(), english("point_info.succeed"));
    feedback.showOperationResult(false);
    EXPECT_EQ(shownText(), english("point_info.failed"));
    feedback.showOperationResult(false, "No backdrop");
    EXPECT_EQ(host.overlay->state(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), "No backdrop");
    feedback.showOperationWarning("Careful");
    EXPECT_EQ(host.overlay->state(), OPERATION_WARNING);
    EXPECT_TRUE(host.overlay->isAutoHidePending());
}

TEST_F(Feedback, WithoutTranslationAStatusResultEndsTheLoadingCard)
{
    host.overlay->showLoading("…");
    feedback.setTranslate(nullptr);
    feedback.showOperationResult(0);
    EXPECT_FALSE(host.overlay->isVisible());
    EXPECT_EQ(host.overlay->state(), OPERATION_IDLE);
}

TEST_F(Feedback, LockAndUnlockResultsBringTheGuideWhenTheCardGoes)
{
    QSignalSpy guides(&feedback, &OperationFeedback::guideAfterOverlayDue);
    feedback.showOperationResult(0);
    feedback.hideOperationOverlay();
    EXPECT_EQ(guides.count(), 0);

    feedback.showOperationResult(5);
    EXPECT_EQ(shownText(), english("point_info.unlock"));
    EXPECT_TRUE(feedback.guideAfterOverlay());
    // The card's own timer ends it the same way as a touch.
    emit host.overlay->autoHideTimeout();
    EXPECT_FALSE(host.overlay->isVisible());
    EXPECT_EQ(guides.count(), 1);
    feedback.hideOperationOverlay();
    EXPECT_EQ(guides.count(), 1) << "the guide comes once per lock result";

    feedback.showOperationResult(-3);
    feedback.hideOperationOverlay();
    EXPECT_EQ(guides.count(), 1);
}

TEST_F(Feedback, TouchBeginAgainstEachKindOfCard)
{
    EXPECT_FALSE(feedback.consumeTouchBeginForOperationOverlay()) << "no card, nothing to consume";

    feedback.showOperationLoading();
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_TRUE(feedback.isOperationInProgress()) << "loading stays";

    feedback.showOperationResult(0);
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_FALSE(feedback.isOperationOverlayActive()) << "a result is dismissed";
    EXPECT_FALSE(feedback.consumeTouchBeginForOperationOverlay());
}

TEST_F(Feedback, GatedCardSwallowsTouchesUntilItsTimeHasPassed)
{
    feedback.showOperationResult(true, "118.00 MB/s");
    host.overlay->stopAutoHide();
    feedback.armMinimumDisplay(5000);
    time.advance(4999);
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_TRUE(feedback.isOperationOverlayActive());
    time.advance(1);
    EXPECT_FALSE(feedback.isMinimumDisplayHolding());
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_FALSE(feedback.isOperationOverlayActive());
}

TEST_F(Feedback, AnyNewCardClearsTheGate)
{
    feedback.showOperationResult(true, "118.00 MB/s");
    feedback.armMinimumDisplay(5000);
    feedback.showOperationWarning("Careful");
    EXPECT_FALSE(feedback.isMinimumDisplayHolding());
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_FALSE(feedback.isOperationOverlayActive());
}

TEST(FeedbackWithoutOverlay, EveryCallIsHarmless)
{
    ManualTimeSource time;
    OperationFeedback feedback(nullptr, englishTranslate(), time);
    feedback.showOperationLoading();
    feedback.showOperationResult(4);
    feedback.showOperationResult(true, "x");
    feedback.showOperationWarning("x");
    feedback.updateOperationOverlayLayout("x");
    feedback.hideOperationOverlay();
    EXPECT_FALSE(feedback.isOperationOverlayActive());
    EXPECT_FALSE(feedback.isOperationInProgress());
    EXPECT_FALSE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_FALSE(feedback.guideAfterOverlay()) << "no card was shown, so no guide is owed";
}
