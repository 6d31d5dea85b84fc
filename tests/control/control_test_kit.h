// Shared pieces of the control tests: the project's texts, the operation
// card as the window builds it, and the simulated device under the model.
#pragma once

#include "control/manual_time_source.h"
#include "control/operation_feedback.h"
#include "support/sim/sim_fixture.h"
#include "ui/text_manager.h"

#include <gtest/gtest.h>

#include <memory>

namespace controltest {

// The English texts of the project's language file.
UITextManager& englishTexts();
QString english(const QString& key);

// The card in a 640 x 172 chrome and the window's feedback on it, on a
// clock that only the test moves.
struct OperationCard {
    OperationCard();
    QString text() const;
    OperationStateType state() const { return overlay->state(); }
    // The card stands and shows the English text of `key`.
    bool shows(const QString& key) const;

    std::unique_ptr<QWidget> chrome;
    OperationOverlayComponent* overlay;
    ManualTimeSource time;
    OperationFeedback feedback;
};

// The simulated device with the panel's whole model link on it (topic
// worker and poller running), and the card; the test starts once the
// model has its first data.
class OnDevice : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(testsupport::waitUntil([&] { return app->isDataReady(); }));
    }

    testsupport::SimFixture backend;
    std::unique_ptr<AppManager> app = std::make_unique<AppManager>(backend.endpoints());
    OperationCard card;
};

} // namespace controltest
