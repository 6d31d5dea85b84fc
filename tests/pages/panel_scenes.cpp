#include "panel_scenes.h"

#include "page_test_support.h"

#include "pages/status_bar_widget.h"
#include "ui/components/nav_dots_component.h"
#include "ui/components/submenu_arrows_component.h"

#include <QApplication>

namespace pagetest {

namespace scenes {

StatusBarVM homeBar(int workMode)
{
    StatusBarVM bar;
    bar.work_mode = workMode;
    bar.pageid = PAGE_STATUS_1;
    bar.is_status_page = true;
    bar.eth_link = bar.wifi_on = bar.ap_on = true;
    bar.disk_type = 0;
    bar.disk_icon_level = 3;
    bar.is_recording = bar.is_streaming = workMode == 0;
    bar.is_decoding = workMode == 1;
    return bar;
}

StatusBarVM contextBar(int pageId, int workMode)
{
    StatusBarVM bar = homeBar(workMode);
    bar.pageid = pageId;
    bar.is_status_page = false;
    bar.is_modal = pageId == PAGE_GENERAL_EDIT || pageId == PAGE_GENERAL_SLIDER
                   || pageId == PAGE_GENERAL_CONFIRM;
    return bar;
}

NavDotsState dotsAt(int pageId, int index, int count)
{
    NavDotsState dots;
    dots.visible = true;
    dots.pageid = pageId;
    dots.current = index;
    dots.count = count;
    return dots;
}

QStringList menuPath(const char* groupKey)
{
    return {QStringLiteral("statusbar.context.menu"), QString::fromLatin1(groupKey)};
}

PanelScene settingsScene(const QString& name, int pageId, const char* groupKey, int index,
                         int count)
{
    PanelScene scene;
    scene.name = name;
    scene.bar = contextBar(pageId);
    scene.context_keys = menuPath(groupKey);
    scene.dots = dotsAt(pageId, index, count);
    scene.arrows = true;
    return scene;
}

} // namespace scenes

QVector<PanelScene> panelScenes()
{
    QVector<PanelScene> all;
    all << scenes::homeScenes() << scenes::menuAndSettingsScenes() << scenes::modalScenes()
        << scenes::surfaceScenes();
    return all;
}

std::unique_ptr<QWidget> buildScreen(const PanelScene& scene, UITextManager* texts,
                                     const QString& theme, QWidget** page)
{
    auto screen = std::make_unique<QWidget>();
    screen->setAttribute(Qt::WA_StyledBackground);
    screen->setProperty("class", "widget1");
    screen->setFixedSize(640, 172);
    applyTheme(screen.get(), theme);

    QWidget* built = nullptr;
    if (scene.full_screen) {
        built = scene.build(texts, screen.get());
        built->setGeometry(screen->rect());
    } else {
        auto* bar = new StatusBarWidget(texts, screen.get());
        StatusBarVM vm = scene.bar;
        QStringList steps;
        for (const QString& key : scene.context_keys)
            steps << texts->getTextWithFallback(key);
        vm.context_text = steps.join(QStringLiteral("  \u00BB  "));
        bar->updateFromVm(vm);
        built = scene.build(texts, screen.get());
        if (!scene.overlay)
            built->move(0, bar->height());
        auto* dots = new NavDotsComponent(screen.get());
        dots->updateState(scene.dots);
        auto* arrows = new SubmenuArrowsComponent(screen.get());
        arrows->updateState(scene.arrows, scene.dots.current < 1,
                            scene.dots.current >= scene.dots.count - 1);
    }
    if (page)
        *page = built;
    showAndSettle(screen.get());
    return screen;
}

void forEachScreen(UITextManager* texts, const QString& theme, const ScreenVisit& visit)
{
    for (const PanelScene& scene : panelScenes()) {
        QWidget* page = nullptr;
        const auto screen = buildScreen(scene, texts, theme, &page);
        visit(screen.get(), page, scene.name, nullptr);
        for (const SceneState& state : scene.states) {
            state.apply(page, texts);
            QApplication::processEvents();
            visit(screen.get(), page, scene.name + QLatin1Char('/') + state.name, &state);
        }
    }
}

} // namespace pagetest
