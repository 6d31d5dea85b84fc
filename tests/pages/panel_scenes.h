#pragma once
// Everything the panel can put on its 640 x 172 screen, each in a typical
// state drawn from realistic view models: the pages under their status bar,
// nav dots and arrows, and the full-screen surfaces. The text-fit and theme
// checks walk all of them and their further states; the gallery draws the
// first state of the scenes marked for it.
#include "model/view_models/shell_view_models.h"
#include "model/view_models/status_view_models.h"
#include "pages/page_ids.h"
#include "ui/text_manager.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

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

namespace scenes {

// A builder that creates `Page` and hands it to `setup`.
template <class Page> auto page(std::function<void(Page&)> setup = {})
{
    return [setup](UITextManager* texts, QWidget* parent) -> QWidget* {
        auto* created = new Page(texts, parent);
        // The theme's fonts must be in place before the page measures texts.
        created->ensurePolished();
        if (setup)
            setup(*created);
        return created;
    };
}

template <class Page> SceneState state(const QString& name, std::function<void(Page&)> apply)
{
    return {name, [apply](QWidget* widget, UITextManager*) { apply(*static_cast<Page*>(widget)); }};
}

template <class VM> using Variants = std::vector<std::pair<QString, std::function<void(VM&)>>>;

// `scene` whose `Page` first shows `base`, then, as further states, each
// variant: `base` with the variant's change.
template <class Page, class VM>
PanelScene showing(PanelScene scene, const VM& base, const Variants<VM>& variants = {})
{
    scene.build = page<Page>([base](Page& p) { p.updateFromVm(base); });
    for (const auto& [name, change] : variants) {
        VM changed = base;
        change(changed);
        scene.states << state<Page>(name, [changed](Page& p) { p.updateFromVm(changed); });
    }
    return scene;
}

// The status bar of the status pages: links, a disk and both activities.
StatusBarVM homeBar(int workMode = 0);
// The status bar of any other page: the breadcrumb only.
StatusBarVM contextBar(int pageId, int workMode = 0);
// Page dots of a group of `count` pages with the page at `index` shown.
NavDotsState dotsAt(int pageId, int index, int count);
// Breadcrumb keys of a settings group, as the menu path reads.
QStringList menuPath(const char* groupKey);
// A settings page: breadcrumb, group dots and the arrows.
PanelScene settingsScene(const QString& name, int pageId, const char* groupKey, int index,
                         int count);

QVector<PanelScene> homeScenes();
QVector<PanelScene> menuAndSettingsScenes();
QVector<PanelScene> modalScenes();
QVector<PanelScene> surfaceScenes();

} // namespace scenes

} // namespace pagetest
