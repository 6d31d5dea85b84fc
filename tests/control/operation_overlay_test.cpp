// The operation card: its states and their looks, the text fitting, the
// auto hide, and the status table against the shipped language file.
#include "control_test_kit.h"

#include <QColor>
#include <QFontMetrics>
#include <QLabel>
#include <QMap>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace controltest;

namespace {

struct LookCase {
    const char* name;
    std::function<void(OperationOverlayComponent&)> show;
    OperationStateType state;
    const char* icon;
    const char* stateName;
    bool autoHide;
};

std::vector<LookCase> lookCases()
{
    return {
        {"loading", [](auto& o) { o.showLoading("Processing…"); }, OPERATION_LOADING,
         OperationOverlayComponent::kLoadingIcon, "loading", false},
        {"success", [](auto& o) { o.showResult(true, "Done"); }, OPERATION_SUCCESS,
         OperationOverlayComponent::kSuccessIcon, "success", true},
        {"failed", [](auto& o) { o.showResult(false, "Operation failed"); }, OPERATION_FAILED,
         OperationOverlayComponent::kFailedIcon, "failed", true},
        {"warning", [](auto& o) { o.showWarning("Turn off NDI before streaming"); },
         OPERATION_WARNING, OperationOverlayComponent::kWarningIcon, "warning", true},
    };
}

QColor iconColour(const OperationOverlayComponent& overlay)
{
    return overlay.iconLabel()->property("iconColor").value<QColor>();
}

} // namespace

TEST(OperationOverlay, StartsHiddenIdleAndPlacedOverTheContent)
{
    OverlayHost host;
    OperationOverlayComponent& overlay = *host.overlay;
    EXPECT_FALSE(overlay.isVisible());
    EXPECT_EQ(overlay.state(), OPERATION_IDLE);
    EXPECT_FALSE(overlay.isActive());
    EXPECT_FALSE(overlay.isInProgress());
    EXPECT_EQ(overlay.geometry(), QRect(0, 30, 640, 40));
    EXPECT_EQ(overlay.property("class").toString(), "v2-operation-overlay");
    EXPECT_FALSE(overlay.testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(overlay.cardWidget()->geometry(), QRect(240, 0, 160, 40));
    EXPECT_EQ(overlay.iconLabel()->property("state").toString(), "loading");
}

TEST(OperationOverlay, EachCallShowsItsStateIconAndStyleState)
{
    OverlayHost host;
    OperationOverlayComponent& overlay = *host.overlay;
    QColor loadingColour;
    for (const LookCase& c : lookCases()) {
        SCOPED_TRACE(c.name);
        c.show(overlay);
        EXPECT_TRUE(overlay.isVisible());
        EXPECT_TRUE(overlay.isActive());
        EXPECT_EQ(overlay.state(), c.state);
        EXPECT_EQ(overlay.isInProgress(), c.state == OPERATION_LOADING);
        EXPECT_EQ(overlay.iconLabel()->property("svgPath").toString(), c.icon);
        EXPECT_EQ(overlay.iconLabel()->property("state").toString(), c.stateName);
        EXPECT_EQ(overlay.textLabel()->property("state").toString(), c.stateName);
        EXPECT_EQ(overlay.isAutoHidePending(), c.autoHide);
        if (c.state == OPERATION_LOADING)
            loadingColour = iconColour(overlay);
        else // the style sheet recoloured the icon for the new state
            EXPECT_NE(iconColour(overlay), loadingColour);
    }
    overlay.hideOverlay();
    EXPECT_FALSE(overlay.isVisible());
    EXPECT_EQ(overlay.state(), OPERATION_IDLE);
    EXPECT_FALSE(overlay.isAutoHidePending());
}

TEST(OperationOverlay, ThemesColourSuccessGreenAndFailureRed)
{
    for (const QString& theme : themeNames()) {
        SCOPED_TRACE(theme.toStdString());
        OverlayHost host(theme);
        host.overlay->showResult(true, "Done");
        EXPECT_EQ(iconColour(*host.overlay), QColor("#4ade80"));
        host.overlay->showResult(false, "Operation failed");
        EXPECT_EQ(iconColour(*host.overlay), QColor("#f87171"));
        host.overlay->showWarning("Careful");
        EXPECT_EQ(iconColour(*host.overlay), QColor("#fbbf24"));
    }
}

TEST(OperationOverlay, ANewCardReplacesTheOldOneAndItsTimer)
{
    OverlayHost host;
    OperationOverlayComponent& overlay = *host.overlay;
    overlay.showResult(true, "Done", 50);
    overlay.showLoading("Processing…");
    EXPECT_FALSE(overlay.isAutoHidePending());
    EXPECT_TRUE(overlay.isInProgress());

    overlay.showWarning("Careful", 0);
    EXPECT_FALSE(overlay.isAutoHidePending()) << "a non-positive time keeps the card up";
}

TEST(OperationOverlay, AutoHideTimerSignalsOnceAndCanBeStopped)
{
    OverlayHost host;
    OperationOverlayComponent& overlay = *host.overlay;
    QSignalSpy timeouts(&overlay, &OperationOverlayComponent::autoHideTimeout);
    overlay.showResult(false, "Operation failed", 30);
    ASSERT_TRUE(timeouts.wait(2000));
    EXPECT_EQ(timeouts.count(), 1);
    // The card itself stays until its owner hides it.
    EXPECT_TRUE(overlay.isActive());

    overlay.showResult(true, "Done", 30);
    overlay.stopAutoHide();
    EXPECT_FALSE(overlay.isAutoHidePending());
    overlay.startAutoHide(-1);
    EXPECT_FALSE(overlay.isAutoHidePending());
    overlay.startAutoHide(20);
    EXPECT_TRUE(timeouts.wait(2000));
}

TEST(OperationOverlay, CardFitsShortTextsAtLeastAndLongTextsAtMost)
{
    OverlayHost host;
    OperationOverlayComponent& overlay = *host.overlay;
    const QFontMetrics metrics(overlay.textLabel()->font());

    overlay.showResult(true, "A");
    const int letter = metrics.horizontalAdvance("A");
    EXPECT_EQ(overlay.cardWidget()->geometry(), QRect(260, 0, 120, 40));
    const int iconX = std::max((120 - (letter + 34)) / 2, 18);
    EXPECT_EQ(overlay.iconLabel()->geometry(), QRect(iconX, 8, 24, 24));
    EXPECT_EQ(overlay.textLabel()->geometry(), QRect(iconX + 34, 6, letter, 28));
    EXPECT_EQ(overlay.textLabel()->text(), "A");

    const QString longText = QString("Recording limit reached ").repeated(8);
    overlay.showResult(false, longText);
    const QString shown = overlay.textLabel()->text();
    EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
    const int shownWidth = metrics.horizontalAdvance(shown);
    EXPECT_LE(shownWidth, 538);
    EXPECT_GT(shownWidth, 538 - metrics.horizontalAdvance("Recording "));
    const int cardWidth = std::min(shownWidth + 70, 608);
    EXPECT_EQ(overlay.cardWidget()->geometry(), QRect((640 - cardWidth) / 2, 0, cardWidth, 40));
    EXPECT_EQ(overlay.iconLabel()->x(), 18);
    EXPECT_EQ(overlay.textLabel()->width(), metrics.horizontalAdvance(shown));

    overlay.showResult(true, "Done");
    const int done = metrics.horizontalAdvance("Done");
    const int width = std::max(done + 70, 120);
    EXPECT_EQ(overlay.cardWidget()->geometry(), QRect((640 - width) / 2, 0, width, 40));
}

TEST(OperationOverlay, EveryStatusTextExistsInEveryLanguage)
{
    QStringList missing;
    for (int language = 0; language < 5; ++language) {
        UITextManager* manager = texts(language);
        for (int status = -1100; status <= 10; ++status) {
            const QString key = OperationOverlayComponent::resultTextKey(status);
            if (manager->getText(key) == key || manager->getText(key).isEmpty())
                missing << QStringLiteral("%1:%2").arg(language).arg(key);
        }
    }
    missing.removeDuplicates();
    EXPECT_TRUE(missing.isEmpty()) << missing.join(", ").toStdString();
}

TEST(OperationOverlay, StatusTableSeparatesSuccessesFailuresAndNamedCases)
{
    const auto key = &OperationOverlayComponent::resultTextKey;
    EXPECT_EQ(key(0), "point_info.succeed");
    EXPECT_EQ(key(6), "point_info.succeed");
    EXPECT_EQ(key(4), "point_info.lock");
    EXPECT_EQ(key(5), "point_info.unlock");
    EXPECT_EQ(key(-3), "point_info.failed");
    EXPECT_EQ(key(-1000), "point_info.failed");
    EXPECT_EQ(key(-605), "point_info.nas_already_opened");
    // Each named failure has a text of its own: no two statuses share a key.
    QMap<QString, int> owners;
    for (int status = -1100; status < 0; ++status) {
        const QString k = key(status);
        if (k == "point_info.failed")
            continue;
        EXPECT_FALSE(owners.contains(k))
            << k.toStdString() << " for " << status << " and " << owners.value(k);
        owners.insert(k, status);
    }
    EXPECT_GE(owners.size(), 60);
}

TEST(OperationOverlay, ResultCodeTranslatesAndJudgesBySign)
{
    OverlayHost host;
    OperationOverlayComponent& overlay = *host.overlay;
    overlay.showResultCode(-5, englishTranslate());
    EXPECT_EQ(overlay.state(), OPERATION_FAILED);
    EXPECT_EQ(overlay.textLabel()->text(), english("point_info.disk_full"));
    overlay.showResultCode(2, englishTranslate());
    EXPECT_EQ(overlay.state(), OPERATION_SUCCESS);
    EXPECT_EQ(overlay.textLabel()->text(), english("point_info.rebooting"));
    overlay.showResultCode(-9, nullptr);
    EXPECT_EQ(overlay.textLabel()->text(), "point_info.stream_limit");
}

TEST(OperationOverlay, ScreenshotsOfEveryStateInBothThemes)
{
    for (const LookCase& c : lookCases()) {
        OverlayHost host;
        c.show(*host.overlay);
        EXPECT_EQ(saveThemedScreenshots(host, QStringLiteral("overlay_%1").arg(c.name)).size(), 2)
            << c.name;
    }
    OverlayHost host;
    host.overlay->showResult(false, QString("Recording limit reached ").repeated(8));
    EXPECT_EQ(saveThemedScreenshots(host, "overlay_long_text").size(), 2);
}
