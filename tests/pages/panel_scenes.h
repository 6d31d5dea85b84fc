#pragma once
// Everything the panel can put on its 640 x 172 screen, each in a typical
// state drawn from realistic view models: the pages under their status bar,
// nav dots and arrows, and the full-screen surfaces. The text-fit walk goes
// through all of them and their further states; the gallery draws the first
// state of the scenes marked for it.
#include "model/view_models/shell_view_models.h"
#include "model/view_models/status_view_models.h"
#include "ui/text_manager.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include <functional>
#include <memory>

namespace pagetest {

// One more state of a scene's page, applied on top of the previous one.
struct SceneState {
    QString name;
    std::function<void(QWidget* page, UITextManager* texts)> apply;
};

struct PanelScene {
    QString name; // file-name friendly, unique
    // Whether the surface covers the whole strip; otherwise it is a 640 x 142
    // page under the status bar.
    bool full_screen = false;
    // Whether the built widget is an overlay that places itself over the
    // chrome (its builder also makes the page beneath).
    bool overlay = false;
    // The status bar's record; its context text comes from `context_keys`.
    StatusBarVM bar;
    QStringList context_keys;
    NavDotsState dots;
    bool arrows = false;
    bool in_gallery = true;
    // Creates the page as a child of `parent`, in the scene's first state.
    std::function<QWidget*(UITextManager*, QWidget* parent)> build;
    QVector<SceneState> states;
};

// All scenes, in the order of the gallery.
QVector<PanelScene> panelScenes();

// The whole screen of `scene` in `theme` ("black" or "blue"): a 640 x 172
// window holding the status bar, the page and the chrome, as the panel
// composes them, shown offscreen. `page` receives the scene's page.
std::unique_ptr<QWidget> buildScreen(const PanelScene& scene, UITextManager* texts,
                                     const QString& theme, QWidget** page = nullptr);
// Builds every scene in `theme` and hands its screen to `visit` in the
// scene's first state and after each further state (null for the first).
using ScreenVisit = std::function<void(const QWidget* screen, QWidget* page, const QString& where,
                                       const SceneState* state)>;
void forEachScreen(UITextManager* texts, const QString& theme, const ScreenVisit& visit);

} // namespace pagetest
