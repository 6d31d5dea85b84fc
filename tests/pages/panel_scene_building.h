#pragma once
// Shorthands for the scene lists: a page built and set up by a typed lambda,
// further states as typed lambdas, and the status bar and chrome of a page in
// the places where the panel puts them.
#include "panel_scenes.h"

#include "pages/page_ids.h"

#include <QVector>

#include <functional>

namespace pagetest::scenes {

template <class Page> using Setup = std::function<void(Page&)>;

// A builder that creates `Page` and hands it to `setup`.
template <class Page> auto page(Setup<Page> setup = {})
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

template <class Page> SceneState state(const QString& name, Setup<Page> apply)
{
    return {name, [apply](QWidget* widget, UITextManager*) { apply(*static_cast<Page*>(widget)); }};
}

// One state per element of `values`, named by `nameOf`.
template <class Page, class Value>
QVector<SceneState> statesFor(const QVector<Value>& values,
                              std::function<QString(const Value&)> nameOf,
                              std::function<void(Page&, const Value&)> apply)
{
    QVector<SceneState> states;
    for (const Value& value : values)
        states << state<Page>(nameOf(value), [apply, value](Page& p) { apply(p, value); });
    return states;
}

// The status bar of the status pages: links, a disk and both activities.
StatusBarVM homeBar(int workMode = 0);
// The status bar of any other page: the breadcrumb only.
StatusBarVM contextBar(int pageId, int workMode = 0);

// Page dots of a group of `count` pages with the page at `index` shown.
NavDotsState dotsAt(int pageId, int index, int count);

// Breadcrumb keys of the settings groups, as the menu path reads.
QStringList menuPath(const char* groupKey);

// A settings page: breadcrumb, group dots and the arrows.
PanelScene settingsScene(const QString& name, int pageId, const char* groupKey, int index,
                         int count);

QVector<PanelScene> homeScenes();
QVector<PanelScene> menuAndSettingsScenes();
QVector<PanelScene> modalScenes();
QVector<PanelScene> surfaceScenes();

} // namespace pagetest::scenes
