// Every widget that a page shows names its look by a `class`; a class without
// a rule for that widget's type in a theme silently falls back to Qt's grey
// default. This walks every screen and state of the panel and checks each
// styled widget against both sheets.
#include "page_test_support.h"
#include "panel_scenes.h"

#include "ui/panel_resources.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace pagetest;

namespace {

// Classes that take their parent's look on purpose, and the never shown
// slider of the quick action page.
const std::set<QString> kUnstyled{"ctr-btn-label",    "status-dec-icon",
                                  "status-live-icon", "status-net-ele",
                                  "status-rec-icon",  "v2-p2-status-label-inactive",
                                  "shortcut"};

// class -> the widget types that the theme's sheet styles under that class.
std::map<QString, std::set<QString>> rulesOf(const QString& theme)
{
    initPanelResources();
    QFile file(QStringLiteral(":/themes/%1.qss").arg(theme));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << theme;
    static const QRegularExpression selector(QStringLiteral(R"re((\w+)\[class="([^"]+)"\])re"));
    std::map<QString, std::set<QString>> rules;
    auto it = selector.globalMatch(QString::fromUtf8(file.readAll()));
    while (it.hasNext()) {
        const auto match = it.next();
        rules[match.captured(2)].insert(match.captured(1));
    }
    return rules;
}

TEST(ThemeCoverage, EveryStyledWidgetOnEveryScreenHasARuleForItsTypeInBothThemes)
{
    const std::map<QString, std::map<QString, std::set<QString>>> themes{
        {"black", rulesOf("black")}, {"blue", rulesOf("blue")}};
    std::set<QString> gaps, classes;
    forEachScreen(
        texts(), "black", [&](const QWidget* screen, QWidget*, const QString&, const SceneState*) {
            for (const QWidget* widget : screen->findChildren<QWidget*>()) {
                const QString className = widget->property("class").toString();
                if (className.isEmpty() || kUnstyled.count(className))
                    continue;
                classes.insert(className);
                for (const auto& [theme, rules] : themes) {
                    const auto rule = rules.find(className);
                    bool styled = false;
                    for (const QString& type :
                         rule == rules.end() ? std::set<QString>{} : rule->second)
                        styled = styled || widget->inherits(type.toLatin1().constData());
                    if (!styled)
                        gaps.insert(QStringLiteral("%1: %2[class=\"%3\"]")
                                        .arg(theme, widget->metaObject()->className(), className));
                }
            }
        });
    EXPECT_GT(classes.size(), 120u) << "the walk no longer reaches the pages' widgets";
    for (const QString& gap : gaps)
        ADD_FAILURE() << "no rule for " << gap;
}

} // namespace
