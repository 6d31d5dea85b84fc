// The operation card and the window's feedback on it: the text of each kind
// of card, the status texts, and what a touch does to each kind of card.
#include "control_test_kit.h"
#include "support/test_support.h"

#include <QFontMetrics>
#include <QLabel>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace controltest;

TEST(OperationCard, EachKindHasItsTextAndOnlyResultsGoByThemselves)
{
    const std::tuple<std::function<void(OperationFeedback&)>, OperationStateType, QString> cases[] =
        {
            {[](auto& f) { f.showOperationLoading(); }, OPERATION_LOADING,
             english("point_info.loading")},
            {[](auto& f) { f.showOperationResult(-5); }, OPERATION_FAILED,
             english("point_info.disk_full")},
            {[](auto& f) { f.showOperationResult(2); }, OPERATION_SUCCESS,
             english("point_info.rebooting")},
            {[](auto& f) { f.showOperationResult(false, "No backdrop"); }, OPERATION_FAILED,
             "No backdrop"},
            {[](auto& f) { f.showOperationWarning("Careful"); }, OPERATION_WARNING, "Careful"},
        };
    OperationCard card;
    for (const auto& [show, state, text] : cases) {
        show(card.feedback);
        EXPECT_EQ(card.state(), state) << text.toStdString();
        EXPECT_EQ(card.text(), text);
        EXPECT_EQ(card.overlay->isAutoHidePending(), state != OPERATION_LOADING);
    }
    card.overlay->showResult(false, "No", 30);
    EXPECT_TRUE(testsupport::waitUntil([&] { return !card.feedback.isOperationOverlayActive(); }));
}

TEST(OperationCard, OverlongTextIsCutToTheWidestCard)
{
    OperationCard card;
    const QFontMetrics metrics(card.overlay->textLabel()->font());
    card.overlay->showResult(false, QString("Recording limit reached ").repeated(8));
    const QString shown = card.text();
    EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
    EXPECT_LE(metrics.horizontalAdvance(shown), 640 - 102);
    EXPECT_GT(metrics.horizontalAdvance(shown), 640 - 102 - metrics.horizontalAdvance("Recording"));
    EXPECT_EQ(card.overlay->cardWidget()->width(),
              std::min(metrics.horizontalAdvance(shown) + 70, 640 - 32));
}

TEST(OperationCard, NonNegativeStatusesSucceedAndUnnamedFailuresShowTheCommonText)
{
    const auto key = &OperationOverlayComponent::resultTextKey;
    for (int status : {0, 6})
        EXPECT_EQ(key(status), "point_info.succeed") << status;
    for (int status : {-3, -1000})
        EXPECT_EQ(key(status), "point_info.failed") << status;
    EXPECT_EQ(key(4), "point_info.lock");
    EXPECT_EQ(key(5), "point_info.unlock");
}

TEST(OperationFeedback, TouchIsSwallowedByLoadingAndGatedCardsAndSpentOnAResult)
{
    OperationCard card;
    OperationFeedback& feedback = card.feedback;
    EXPECT_FALSE(feedback.consumeTouchBeginForOperationOverlay()) << "no card, nothing to use up";
    feedback.showOperationLoading();
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_TRUE(feedback.isOperationInProgress()) << "loading stays";
    feedback.showOperationResult(0);
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_FALSE(feedback.isOperationOverlayActive()) << "a result is dismissed";

    feedback.showOperationResult(true, "118.00 MB/s");
    feedback.armMinimumDisplay(5000);
    card.time.advance(4999);
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_TRUE(feedback.isOperationOverlayActive()) << "swallowed inside the gate";
    card.time.advance(1);
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_FALSE(feedback.isOperationOverlayActive());

    feedback.showOperationResult(true, "118.00 MB/s");
    feedback.armMinimumDisplay(5000);
    feedback.showOperationWarning("Careful");
    EXPECT_TRUE(feedback.consumeTouchBeginForOperationOverlay());
    EXPECT_FALSE(feedback.isOperationOverlayActive()) << "a new card clears the gate";
}

TEST(OperationFeedback, LockResultsBringTheGuideOnceTheirCardGoes)
{
    OperationCard card;
    QSignalSpy guides(&card.feedback, &OperationFeedback::guideAfterOverlayDue);
    for (int status : {0, 4, 5}) {
        card.feedback.showOperationResult(status);
        emit card.overlay->autoHideTimeout(); // the timer ends it like a touch
        card.feedback.hideOperationOverlay();
    }
    EXPECT_FALSE(card.overlay->isVisible());
    EXPECT_EQ(guides.count(), 2) << "once per lock or unlock result, none for others";
}
