// The upgrade screen's progress picture and its delayed "rebooting" line, and
// the splash.
#include "page_test_support.h"
#include "pages/splash_overlay_widget.h"
#include "pages/upgrade_widget.h"

#include <QFile>
#include <QLabel>
#include <QTimer>
#include <QVariant>
#include <gtest/gtest.h>

namespace {

class UpgradeTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    UpgradeWidget upgrade{texts.get(), nullptr};

    QString statusLine() const { return upgrade.findChild<QLabel*>("upgradeStatus")->text(); }
    QString text(const char* key) const { return texts->getTextWithFallback(key); }
    // The single shot as Qt would deliver it when its time has come.
    void elapseRebootDelay()
    {
        ASSERT_TRUE(upgrade.rebootTextTimer()->isActive());
        upgrade.rebootTextTimer()->stop();
        QMetaObject::invokeMethod(upgrade.rebootTextTimer(), "timeout");
    }
};

TEST_F(UpgradeTest, ImageByProgress)
{
    const std::pair<int, const char*> cases[] = {
        {-5, "upgrade40"},   {0, "upgrade40"},  {1, "upgrade40"},  {16, "upgrade40"},
        {17, "upgrade50"},   {33, "upgrade50"}, {34, "upgrade60"}, {50, "upgrade70"},
        {67, "upgrade80"},   {84, "upgrade90"}, {99, "upgrade90"}, {100, "upgrade100"},
        {150, "upgrade100"},
    };
    for (const auto& [progress, name] : cases) {
        upgrade.updateFromVm(progress);
        EXPECT_EQ(upgrade.shownImagePath(), QStringLiteral(":/icons/upgrade/%1.png").arg(name))
            << progress;
    }
}

TEST_F(UpgradeTest, ImageLevelBoundaries)
{
    for (int level = -1; level <= 101; ++level)
        EXPECT_TRUE(QFile::exists(UpgradeWidget::progressImagePath(level))) << level;
    EXPECT_EQ(UpgradeWidget::progressImagePath(39), QStringLiteral(":/icons/upgrade/upgrade0.png"));
    EXPECT_EQ(UpgradeWidget::progressImagePath(40),
              QStringLiteral(":/icons/upgrade/upgrade40.png"));
    EXPECT_EQ(UpgradeWidget::progressImagePath(89),
              QStringLiteral(":/icons/upgrade/upgrade80.png"));
    EXPECT_EQ(UpgradeWidget::progressImagePath(99),
              QStringLiteral(":/icons/upgrade/upgrade90.png"));
    EXPECT_EQ(UpgradeWidget::progressImagePath(100),
              QStringLiteral(":/icons/upgrade/upgrade100.png"));
    EXPECT_EQ(UpgradeWidget::progressImageLevel(0), 40);
    EXPECT_EQ(UpgradeWidget::progressImageLevel(50), 70);
    EXPECT_EQ(UpgradeWidget::progressImageLevel(101), 100);
}

TEST_F(UpgradeTest, RebootingTextFollowsTheDownloadAfterOneSecond)
{
    upgrade.updateFromVm(60);
    EXPECT_EQ(statusLine(), text("upgrade.download"));
    EXPECT_FALSE(upgrade.rebootTextTimer()->isActive());

    upgrade.updateFromVm(100);
    EXPECT_EQ(statusLine(), text("upgrade.download"));
    EXPECT_TRUE(upgrade.rebootTextTimer()->isSingleShot());
    EXPECT_EQ(upgrade.rebootTextTimer()->interval(), 1000);

    // Further reports of 100 don't restart the delay.
    upgrade.updateFromVm(100);
    elapseRebootDelay();
    EXPECT_EQ(statusLine(), text("upgrade.rebooting"));
    EXPECT_TRUE(upgrade.isRebooting());

    upgrade.updateFromVm(100);
    EXPECT_EQ(statusLine(), text("upgrade.rebooting"));
    EXPECT_FALSE(upgrade.rebootTextTimer()->isActive());

    upgrade.updateFromVm(20);
    EXPECT_EQ(statusLine(), text("upgrade.download"));
    EXPECT_FALSE(upgrade.isRebooting());
}

TEST_F(UpgradeTest, ADropBelowHundredCancelsThePendingSwitch)
{
    upgrade.updateFromVm(100);
    ASSERT_TRUE(upgrade.rebootTextTimer()->isActive());
    upgrade.updateFromVm(95);
    EXPECT_FALSE(upgrade.rebootTextTimer()->isActive());
    EXPECT_EQ(statusLine(), text("upgrade.download"));
}

TEST_F(UpgradeTest, WarningAndSnapshots)
{
    EXPECT_EQ(upgrade.findChild<QLabel*>("upgradeWarning")->text(), text("upgrade.waring"));
    upgrade.updateFromVm(50);
    pagetest::saveThemedScreenshots(&upgrade, "upgrade_50");
    upgrade.updateFromVm(100);
    elapseRebootDelay();
    pagetest::saveThemedScreenshots(&upgrade, "upgrade_rebooting");
    EXPECT_EQ(upgrade.property("class").toString(), QStringLiteral("widget2"));
}

TEST(SplashTest, CoversTheScreenInBlackWithTheLogo)
{
    SplashOverlayWidget splash;
    EXPECT_EQ(splash.geometry(), QRect(0, 0, 640, 172));
    auto* logo = splash.findChild<QLabel*>();
    ASSERT_NE(logo, nullptr);
    EXPECT_EQ(logo->geometry(), splash.rect());
    EXPECT_TRUE(splash.testAttribute(Qt::WA_StyledBackground));
    EXPECT_TRUE(splash.styleSheet().contains(QLatin1String("#000000")));
    EXPECT_EQ(logo->alignment(), Qt::AlignCenter);
    pagetest::saveThemedScreenshots(&splash, "splash");
}

} // namespace
