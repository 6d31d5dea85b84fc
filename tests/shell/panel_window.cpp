#include "panel_window.h"

#include "ui/components/settings_card.h"
#include "ui/operation_overlay_component.h"
#include "ui/panel_resources.h"
#include "ui/text_manager.h"

#include <QCoreApplication>
#include <QLabel>
#include <QStackedWidget>
#include <QTimer>
#include <gtest/gtest.h>

namespace shelltest {

namespace {

std::unique_ptr<testsupport::SimFixture> simulatorFor(const PanelOptions& options)
{
    auto sim = std::make_unique<testsupport::SimFixture>(testsupport::useLoopbackTopics);
    if (!options.guides)
        sim->require("set /lcd/gesture_guide/max_count 0");
    sim->require("set /system/language_id 1");
    if (options.prepare)
        options.prepare(*sim);
    return sim;
}

} // namespace

PanelWindow::PanelWindow(const PanelOptions& options)
    : simulator(simulatorFor(options)), backend_env(*simulator),
      language_file("PANEL_LANGUAGE_FILE",
                    PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json"),
      test_pipe_path("VANTOR_GUI_TEST_CMD_PATH", folder.file("test_cmd.fifo").c_str()),
      manual_clock(options.manual_time ? std::make_unique<ManualTimeSource>() : nullptr)
{
    initPanelResources();
    widget = std::make_unique<Widget>(nullptr, manual_clock.get());
    widget->pageRefreshTimer()->stop();
}

bool PanelWindow::waitForMainUi(std::chrono::milliseconds deadline)
{
    return testsupport::waitUntil([this] { return !widget->isSplashVisible(); }, deadline);
}

bool PanelWindow::tickUntil(const std::function<bool()>& condition,
                            std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    for (;;) {
        tick();
        if (condition())
            return true;
        if (std::chrono::steady_clock::now() >= end)
            return false;
        testsupport::waitUntil([] { return false; }, std::chrono::milliseconds(50));
    }
}

int PanelWindow::shownPageId()
{
    QWidget* shown = widget->pageStack()->currentWidget();
    for (int id = 0; id < kPageCount; ++id) {
        if (shown && widget->pageid_to_widget(id) == shown)
            return id;
    }
    return -1;
}

void PanelWindow::tap(QPushButton* button)
{
    ASSERT_NE(button, nullptr);
    widget->button_tap(button);
    QCoreApplication::processEvents();
}

QString PanelWindow::text(const char* key)
{
    return widget->textManager()->getTextWithFallback(key);
}

bool PanelWindow::cardShows(const char* key)
{
    return widget->isOperationOverlayActive()
           && widget->operationOverlay()->textLabel()->text() == text(key);
}

QPushButton* settingsCard(Widget& w, int page, const char* key)
{
    auto* cards = dynamic_cast<SettingsCardPage*>(w.pageid_to_widget(page));
    const QString wanted = w.textManager()->getTextWithFallback(key);
    for (int card = 0; cards && card < cards->cardCount(); ++card) {
        if (cards->cardItem(card).label->text() == wanted)
            return cards->cardButton(card);
    }
    return nullptr;
}

} // namespace shelltest
