#pragma once
// Working the controls of a whole panel as a user would: buttons tapped
// through the window's gates, and the operation card read back.
#include "shell_rig.h"
#include "ui/operation_overlay_component.h"

#include <QPushButton>
#include <QString>

#include <chrono>
#include <string>

namespace shelltest {

// Taps `button` through Widget::button_tap and runs the queued click it
// posts; a synchronous control has finished on return.
void tap(Widget& panel, QPushButton* button);

// A touch begin on the window, as the touch handler reports it first.
void touch(Widget& panel);

// The card of a settings page that shows the text of `key`; null if none.
QPushButton* settingsCard(Widget& panel, int page, const char* key);
// The look word ("active", "normal", ...) that card shows now.
QString settingsCardLook(Widget& panel, int page, const char* key);
// Row `index` of a list page (OSD, push streams, decoder sources).
QPushButton* listRow(Widget& panel, int page, int index);
// The first button below `root` with the style class `styleClass`.
QPushButton* buttonWithClass(QWidget* root, const char* styleClass);

QString text(Widget& panel, const char* key);
QString cardText(Widget& panel);
OperationStateType cardState(Widget& panel);
bool cardVisible(Widget& panel);

// No control job runs and no loading card stands: the tap has its answer.
bool waitUntilSettled(Widget& panel,
                      std::chrono::milliseconds deadline = std::chrono::milliseconds(5000));

// A value of the simulated device.
int deviceInt(PanelRig& rig, const std::string& pointer);

// Shows `page` and ticks until its view model has been delivered with
// `ready` true, so that the page's controls show the device's state.
bool showPageWhen(PanelRig& rig, int page, const std::function<bool()>& ready);

} // namespace shelltest
