// The screensaver's wandering card and its mode badge.
#include "page_test_support.h"
#include "pages/dynamic_screensaver_widget.h"

#include <QFrame>
#include <QLabel>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using pagetest::firstByClass;

class ScreensaverTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    DynamicScreensaverWidget saver{texts.get(), nullptr};

    QFrame* card() const { return firstByClass<QFrame>(&saver, "dynamic-screensaver-card"); }
    // One tick as the running timer delivers it.
    void tick() { QMetaObject::invokeMethod(saver.animationTimer(), "timeout"); }
};

TEST_F(ScreensaverTest, StartPlacesTheCardAndRunsTheTimer)
{
    saver.start();
    EXPECT_TRUE(saver.isVisible());
    EXPECT_TRUE(saver.animationTimer()->isActive());
    EXPECT_EQ(saver.animationTimer()->interval(), 500);
    EXPECT_EQ(card()->geometry(), QRect(40, 18, 280, 96));

    tick();
    EXPECT_EQ(card()->pos(), QPoint(44, 22));

    saver.stop();
    EXPECT_FALSE(saver.isVisible());
    EXPECT_FALSE(saver.animationTimer()->isActive());
}

TEST_F(ScreensaverTest, CardBouncesAtItsBounds)
{
    saver.start();
    int minX = 1000, maxX = -1, minY = 1000, maxY = -1;
    QList<QPoint> path;
    for (int i = 0; i < 400; ++i) {
        tick();
        const QPoint p = card()->pos();
        path.append(p);
        minX = qMin(minX, p.x());
        maxX = qMax(maxX, p.x());
        minY = qMin(minY, p.y());
        maxY = qMax(maxY, p.y());
    }
    EXPECT_EQ(minX, 24);
    EXPECT_EQ(maxX, 336);
    EXPECT_EQ(minY, 12);
    EXPECT_EQ(maxY, 64);
    // From the start at x 40 it takes 74 steps of 4 to reach 336, where it turns.
    EXPECT_EQ(path.at(73).x(), 336);
    EXPECT_EQ(path.at(74).x(), 332);
    // Vertically: 18 -> 62 in 11 steps, then clamped to 64 and turned.
    EXPECT_EQ(path.at(11).y(), 64);
    EXPECT_EQ(path.at(12).y(), 60);
    // And it turns at the left edge: 336 -> 24 in 78 steps.
    EXPECT_EQ(path.at(73 + 78).x(), 24);
    EXPECT_EQ(path.at(73 + 79).x(), 28);
}

TEST_F(ScreensaverTest, UsesTheWidgetSizeForItsBounds)
{
    saver.resize(500, 150);
    saver.start();
    int maxX = 0, maxY = 0;
    for (int i = 0; i < 200; ++i) {
        saver.onAnimationTick();
        maxX = qMax(maxX, saver.cardPosition().x());
        maxY = qMax(maxY, saver.cardPosition().y());
    }
    EXPECT_EQ(maxX, 500 - 304);
    EXPECT_EQ(maxY, 150 - 108);
}

TEST_F(ScreensaverTest, BadgeShowsModeOrStandbyAndEmptyTimesShowPlaceholders)
{
    auto* mode = firstByClass<QLabel>(&saver, "dynamic-screensaver-mode-text");
    DynamicScreensaverVM vm;
    vm.date_text = "";
    vm.time_text = "";
    vm.work_mode = 1;
    saver.updateFromVm(vm);
    EXPECT_EQ(mode->text(), texts->getTextWithFallback("statusbar.workmode.decode"));
    EXPECT_EQ(firstByClass<QLabel>(&saver, "dynamic-screensaver-date")->text(),
              QStringLiteral("----.--.--"));
    EXPECT_EQ(firstByClass<QLabel>(&saver, "dynamic-screensaver-time")->text(),
              QStringLiteral("--:--:--"));

    vm.work_mode = 0;
    saver.updateFromVm(vm);
    EXPECT_EQ(mode->text(), texts->getTextWithFallback("statusbar.workmode.encode"));

    vm.standby = true;
    vm.work_mode = 1;
    vm.time_text = "10:11:12";
    saver.updateFromVm(vm);
    EXPECT_EQ(mode->text(), texts->getTextWithFallback("standby_page.standby"));
    EXPECT_EQ(firstByClass<QLabel>(&saver, "dynamic-screensaver-time")->text(),
              QStringLiteral("10:11:12"));
}

TEST_F(ScreensaverTest, Snapshot)
{
    DynamicScreensaverVM vm;
    vm.date_text = "2024-05-06";
    vm.time_text = "12:34:56";
    saver.updateFromVm(vm);
    saver.start();
    pagetest::saveThemedScreenshots(&saver, "screensaver");
    saver.stop();
    EXPECT_EQ(firstByClass<QFrame>(&saver, "dynamic-screensaver-edge")->height(), 1);
}

} // namespace
