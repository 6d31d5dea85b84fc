#include "page_test_support.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/page_ids.h"

#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

class ConfirmPageTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager();
    GeneralConfirmPageWidget page{texts.get()};

    QString messageFor(int action, int param = 1)
    {
        page.updateFromVm({action, PAGE_SYSTEM_SETTINGS_3, 0, param});
        return page.messageText();
    }
    QPushButton* button(const char* cls) const
    {
        return pagetest::firstByClass<QPushButton>(&page, cls);
    }
};

TEST_F(ConfirmPageTest, MessageFollowsTheAction)
{
    EXPECT_EQ(messageFor(CONFIRM_ACTION_REBOOT),
              texts->getTextWithFallback("system_settings.restart_content"));
    EXPECT_EQ(messageFor(CONFIRM_ACTION_RESET),
              texts->getTextWithFallback("system_settings.restore_content"));
    EXPECT_EQ(messageFor(CONFIRM_ACTION_STANDBY),
              texts->getTextWithFallback("system_settings.standby_content"));
    EXPECT_TRUE(messageFor(7).isEmpty());
}

TEST_F(ConfirmPageTest, DcOutputMessageNamesTheVoltage)
{
    const QString twelve = messageFor(CONFIRM_ACTION_DC_OUT, 2);
    EXPECT_TRUE(twelve.contains("12V")) << twelve.toStdString();
    EXPECT_FALSE(twelve.contains("{voltage}"));
    EXPECT_EQ(page.voltage(), 2);

    const QString low = messageFor(CONFIRM_ACTION_DC_OUT, 0);
    EXPECT_TRUE(low.contains("8.4V")) << low.toStdString();
    EXPECT_EQ(page.voltage(), 1) << "any other parameter counts as the 8.4 V output";
}

TEST_F(ConfirmPageTest, ButtonsAnswerWithActionAndReturnPage)
{
    QSignalSpy confirmed(&page, &GeneralConfirmPageWidget::confirmed);
    QSignalSpy cancelled(&page, &GeneralConfirmPageWidget::cancelled);
    page.updateFromVm({CONFIRM_ACTION_STANDBY, PAGE_SHORTCUT, 4, 1});
    EXPECT_EQ(page.returnIndex(), 4);

    button("confirm-confirm-btn")->click();
    ASSERT_EQ(confirmed.count(), 1);
    EXPECT_EQ(confirmed.at(0).at(0).toInt(), CONFIRM_ACTION_STANDBY);
    button("confirm-cancel-btn")->click();
    ASSERT_EQ(cancelled.count(), 1);
    EXPECT_EQ(cancelled.at(0).at(0).toInt(), PAGE_SHORTCUT);
}

TEST_F(ConfirmPageTest, NoGestureLeavesTheDialog)
{
    for (GestureKind kind :
         {GestureKind::SwipeLeft, GestureKind::SwipeRight, GestureKind::EdgeSwipeToCenter,
          GestureKind::SwipeUp, GestureKind::SwipeDown, GestureKind::LongPress,
          GestureKind::AutoSwitch}) {
        EXPECT_FALSE(page.dispatchGesture(kind, 0).has_value());
    }
}

TEST_F(ConfirmPageTest, LanguageChangeRenewsButtonsAndMessage)
{
    page.updateFromVm({CONFIRM_ACTION_REBOOT, PAGE_SYSTEM_SETTINGS_3, 0, 1});
    EXPECT_EQ(button("confirm-cancel-btn")->text(), "Cancel");

    texts->switchLanguage(3); // French
    page.updateFromVm({CONFIRM_ACTION_REBOOT, PAGE_SYSTEM_SETTINGS_3, 0, 1});
    EXPECT_EQ(button("confirm-cancel-btn")->text(), "Cancel") << "renewed only when marked dirty";
    page.setDirty(true);
    page.updateFromVm({CONFIRM_ACTION_REBOOT, PAGE_SYSTEM_SETTINGS_3, 0, 1});
    EXPECT_EQ(button("confirm-confirm-btn")->text(),
              texts->getTextWithFallback("confirm_page.confirm"));
    EXPECT_EQ(page.messageText(), texts->getTextWithFallback("system_settings.restart_content"));
}

TEST(ConfirmPageLook, Screenshots)
{
    auto texts = pagetest::makeTextManager();
    GeneralConfirmPageWidget page(texts.get());
    page.updateFromVm({CONFIRM_ACTION_DC_OUT, PAGE_SYSTEM_SETTINGS_1, 0, 2});
    pagetest::showAndSettle(&page);
    pagetest::saveThemedScreenshots(&page, "confirm_dc_out");
    page.updateFromVm({CONFIRM_ACTION_RESET, PAGE_SYSTEM_SETTINGS_3, 0, 1});
    pagetest::saveThemedScreenshots(&page, "confirm_reset");
    EXPECT_FALSE(page.messageText().isEmpty());
}

} // namespace
