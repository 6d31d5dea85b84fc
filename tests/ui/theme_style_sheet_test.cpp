// The two themes: both sheets parse, they style the same selectors, every
// class the pages use has a rule, and a sample of classes and states gets the
// colours of its theme.
#include "support/qt_capture.h"
#include "theme_test_kit.h"
#include "ui/svg_icon_label.h"

#include <QDirIterator>
#include <QFrame>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QSlider>
#include <QStyle>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

// Stands in for the slider page, whose custom-drawn colours come from the sheet.
class SliderColoursProbe : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor sliderTrackColor MEMBER track)
    Q_PROPERTY(QColor sliderTrackBorderColor MEMBER trackBorder)
    Q_PROPERTY(QColor sliderFillColor MEMBER fill)
    Q_PROPERTY(QColor sliderTickColor MEMBER tick)
    Q_PROPERTY(QColor sliderPassedTickColor MEMBER passedTick)
    Q_PROPERTY(QColor sliderHandleFillColor MEMBER handleFill)
    Q_PROPERTY(QColor sliderHandleBorderColor MEMBER handleBorder)

public:
    using QWidget::QWidget;
    QColor track, trackBorder, fill, tick, passedTick, handleFill, handleBorder;
};

namespace {

std::string themeParam(const ::testing::TestParamInfo<QString>& info)
{
    return info.param.toStdString();
}

// A window carrying one theme, as the panel's main window does.
class ThemedHost {
public:
    explicit ThemedHost(const QString& theme) : window(std::make_unique<QWidget>())
    {
        window->resize(640, 172);
        window->setStyleSheet(looktest::themeSheet(theme));
    }

    template <typename W>
    W* add(const QString& className, const char* stateProperty = nullptr,
           const QString& state = QString())
    {
        auto* widget = new W(window.get());
        widget->setProperty("class", className);
        if (stateProperty)
            widget->setProperty(stateProperty, state);
        widget->setAttribute(Qt::WA_StyledBackground);
        widget->resize(80, 40);
        widget->ensurePolished();
        return widget;
    }

    std::unique_ptr<QWidget> window;
};

QColor centreOf(QWidget* widget)
{
    const QImage face = widget->grab().toImage();
    return face.pixelColor(face.width() / 2, face.height() / 2);
}

// Selectors of a sheet, one entry per selector of a rule, whitespace-normalised.
QSet<QString> selectorsOf(const QString& sheet)
{
    QString text = sheet;
    text.remove(QRegularExpression(QString::fromLatin1(R"(/\*.*?\*/)"),
                                   QRegularExpression::DotMatchesEverythingOption));
    text.replace(QRegularExpression(QString::fromLatin1(R"(\{[^}]*\})")), QStringLiteral(","));
    QSet<QString> selectors;
    for (const QString& selector : text.split(',', Qt::SkipEmptyParts))
        selectors << selector.simplified();
    selectors.remove(QString());
    return selectors;
}

QSet<QString> classesOf(const QString& sheet)
{
    QSet<QString> classes;
    auto matches =
        QRegularExpression(QString::fromLatin1(R"re(\[class="([^"]+)"\])re")).globalMatch(sheet);
    while (matches.hasNext())
        classes << matches.next().captured(1);
    return classes;
}

class ThemeStyleSheet : public ::testing::TestWithParam<QString> {};

TEST_P(ThemeStyleSheet, ParsesAndStylesEveryClassWithoutWarnings)
{
    const QString sheet = looktest::themeSheet(GetParam());
    ASSERT_FALSE(sheet.isEmpty());

    testsupport::MessageCapture capture;
    ThemedHost host(GetParam());
    // One widget of the selector's own type per styled class, so that every
    // rule, property selector and qproperty is exercised.
    const QRegularExpression rule(QString::fromLatin1(R"re((\w+)\[class="([^"]+)"\])re"));
    auto matches = rule.globalMatch(sheet);
    int styled = 0;
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString type = match.captured(1);
        const QString className = match.captured(2);
        if (type == QLatin1String("QLabel"))
            host.add<SvgIconLabel>(className);
        else if (type == QLatin1String("QPushButton"))
            host.add<QPushButton>(className);
        else if (type == QLatin1String("QProgressBar"))
            host.add<QProgressBar>(className);
        else if (type == QLatin1String("QSlider"))
            host.add<QSlider>(className);
        else if (type == QLatin1String("QFrame"))
            host.add<QFrame>(className);
        else if (className == QLatin1String("v2-slider-page"))
            host.add<SliderColoursProbe>(className);
        else
            host.add<QWidget>(className);
        ++styled;
    }
    host.window->show();
    host.window->grab();
    EXPECT_GT(styled, 100);
    EXPECT_TRUE(capture.warnings().isEmpty()) << capture.warnings().join('\n').toStdString();
}

TEST_P(ThemeStyleSheet, BrokenSheetIsReportedByTheCheck)
{
    // The warning test above only means something if Qt does report a bad sheet.
    testsupport::MessageCapture capture;
    QWidget widget;
    widget.setStyleSheet(looktest::themeSheet(GetParam())
                         + QStringLiteral("QLabel[class=\"x\" { color: red; }"));
    widget.ensurePolished();
    EXPECT_TRUE(capture.warnings().join('\n').contains(QLatin1String("Could not parse")));
}

TEST(ThemeStyleSheets, BothThemesStyleTheSameSelectors)
{
    const QSet<QString> black = selectorsOf(looktest::themeSheet("black"));
    const QSet<QString> blue = selectorsOf(looktest::themeSheet("blue"));
    EXPECT_GT(black.size(), 150);
    for (const QString& selector : black - blue)
        ADD_FAILURE() << "only in black: " << selector.toStdString();
    for (const QString& selector : blue - black)
        ADD_FAILURE() << "only in blue: " << selector.toStdString();
}

TEST(ThemeStyleSheets, EveryClassThePagesUseHasARule)
{
    // Classes that take their parent's look on purpose.
    const QSet<QString> unstyled{"ctr-btn-label",    "status-dec-icon",
                                 "status-live-icon", "status-net-ele",
                                 "status-rec-icon",  "v2-p2-status-label-inactive"};
    const QSet<QString> styled = classesOf(looktest::themeSheet("black"));
    const QRegularExpression classLiteral(QStringLiteral(
        R"re("((?:v2|status|statusbar|standby|dynamic|confirm)-[a-z0-9-]+|navdots?)")re"));
    QDirIterator it(QStringLiteral(PANEL_SOURCE_DIR "/src"), {"*.cpp", "*.h"}, QDir::Files,
                    QDirIterator::Subdirectories);
    int seen = 0;
    while (it.hasNext()) {
        QFile source(it.next());
        if (!source.open(QIODevice::ReadOnly))
            continue;
        auto matches = classLiteral.globalMatch(QString::fromUtf8(source.readAll()));
        while (matches.hasNext()) {
            const QString className = matches.next().captured(1);
            ++seen;
            if (unstyled.contains(className))
                continue;
            EXPECT_TRUE(styled.contains(className))
                << className.toStdString() << " in " << source.fileName().toStdString();
        }
    }
    EXPECT_GT(seen, 0);
}

// One sampled look: the widget, its class and state, and the colour it must
// get. A sample covers each way a colour is set (text, icon tint, surface, bar
// chunk; class, state and per-class state rules), not every rule of the sheets.
struct LookSample {
    const char* what;
    std::function<QColor(ThemedHost&)> colourIn;
    const char* black;
    const char* blue;
};

QColor textColourOf(QLabel* label)
{
    return label->palette().color(QPalette::WindowText);
}

std::function<QColor(ThemedHost&)> labelText(const char* className, const char* property = nullptr,
                                             const char* state = "")
{
    return [=](ThemedHost& host) {
        return textColourOf(host.add<QLabel>(className, property, state));
    };
}

std::function<QColor(ThemedHost&)> iconTint(const char* className, const char* property = nullptr,
                                            const char* state = "")
{
    return [=](ThemedHost& host) {
        return host.add<SvgIconLabel>(className, property, state)->iconColor();
    };
}

template <typename W>
std::function<QColor(ThemedHost&)> surface(const char* className, const char* property = nullptr,
                                           const char* state = "")
{
    return [=](ThemedHost& host) { return centreOf(host.add<W>(className, property, state)); };
}

std::function<QColor(ThemedHost&)> fullBarChunk(const char* className)
{
    return [=](ThemedHost& host) {
        auto* bar = host.add<QProgressBar>(className);
        bar->setTextVisible(false);
        bar->setValue(bar->maximum());
        return centreOf(bar);
    };
}

const std::vector<LookSample>& lookSamples()
{
    static const std::vector<LookSample> samples{
        {"title", labelText("title"), "#409eff", "#FFD166"},
        {"temp warning", labelText("v2-p1-temp-value", "state", "warning"), "#f59e0b", "#f59e0b"},
        {"temp normal falls back", labelText("v2-p1-temp-value", "state", "normal"), "#ffffff",
         "#ffffff"},
        {"card label active", labelText("v2-sys-card-label", "text-state", "active"), "#3b82f6",
         "#FFD166"},
        {"operation loading", labelText("v2-operation-text", "state", "loading"), "#60a5fa",
         "#FFD166"},
        {"option actual", labelText("v2-edit-option-label", "option-state", "actual"), "#60a5fa",
         "#FFD166"},
        {"icon base", iconTint("v2-sys-info-icon", "icon-state", "normal"), "#ffffff", "#ffffff"},
        {"icon active", iconTint("v2-p3-icon", "icon-state", "active"), "#3b82f6", "#FFD166"},
        {"icon disabled", iconTint("standby-icon", "icon-state", "disabled"), "#6b7280", "#6b7280"},
        {"recording on cards", iconTint("v2-sys-card-icon", "icon-state", "recording"), "#ef4444",
         "#ef4444"},
        {"recording elsewhere", iconTint("v2-menu-icon", "icon-state", "recording"), "#ffffff",
         "#ffffff"},
        {"p2 status icon green", iconTint("v2-p2-status-icon", "icon-state", "active-green"),
         "#4ade80", "#4ade80"},
        {"green only on p2 status", iconTint("v2-p1-icon", "icon-state", "active-green"), "#ffffff",
         "#ffffff"},
        {"operation icon", iconTint("v2-operation-icon", "state", "loading"), "#60a5fa", "#FFD166"},
        {"page", surface<QWidget>("widget1"), "#111111", "#002170"},
        {"confirm confirm", surface<QPushButton>("confirm-confirm-btn"), "#dc2626", "#dc2626"},
        {"edit confirm", surface<QPushButton>("v2-edit-confirm-btn", "option-state", "actual"),
         "#262626", "#062B86"},
        {"record resume", surface<QPushButton>("v2-record-btn", "state", "resume"), "#D97706",
         "#894c00"},
        {"shortcut row", surface<QPushButton>("v2-shurtcut-btn"), "", "#062B86"},
        {"cpu bar", fullBarChunk("v2-p1-cpu-bar"), "#3b82f6", "#FFD166"},
        {"mem bar", fullBarChunk("v2-p1-mem-bar"), "#8b5cf6", "#D6E8FF"},

    };
    return samples;
}

TEST_P(ThemeStyleSheet, SampledClassesAndStatesGetTheirThemeColours)
{
    const bool blue = GetParam() == QLatin1String("blue");
    for (const LookSample& sample : lookSamples()) {
        const char* expected = blue ? sample.blue : sample.black;
        if (!*expected)
            continue; // translucent in this theme: depends on what lies below
        ThemedHost host(GetParam());
        EXPECT_EQ(sample.colourIn(host).name(), QColor(expected).name()) << sample.what;
    }
}

TEST_P(ThemeStyleSheet, SliderPageColoursComeThroughProperties)
{
    ThemedHost host(GetParam());
    auto* page = host.add<SliderColoursProbe>("v2-slider-page");
    const bool blue = GetParam() == QLatin1String("blue");
    EXPECT_EQ(page->track, QColor(blue ? "#062B86" : "#1f2937"));
    EXPECT_EQ(page->trackBorder, QColor(blue ? "#1E5BCA" : "#374151"));
    EXPECT_EQ(page->fill, QColor(blue ? "#1E5BCA" : "#2563eb"));
    EXPECT_EQ(page->tick, QColor("#6b7280"));
    EXPECT_EQ(page->passedTick, QColor(blue ? "#FFD166" : "#60a5fa"));
    EXPECT_EQ(page->handleFill, QColor("#ffffff"));
    EXPECT_EQ(page->handleBorder, QColor(blue ? "#FFD166" : "#3b82f6"));
}

TEST_P(ThemeStyleSheet, NewStateNeedsARepolish)
{
    ThemedHost host(GetParam());
    QLabel* status = host.add<QLabel>("v2-shortcut-status", "state", "normal");
    ASSERT_EQ(textColourOf(status), QColor("#6b7280"));
    status->setProperty("state", "warning");
    EXPECT_EQ(textColourOf(status), QColor("#6b7280"));
    status->style()->unpolish(status);
    status->style()->polish(status);
    EXPECT_EQ(textColourOf(status), QColor("#fbbf24"));
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemeStyleSheet, ::testing::ValuesIn(looktest::themeNames()),
                         themeParam);

TEST(ThemeStyleSheets, SwitchingThemeRestylesEverySurfaceAtOnce)
{
    ThemedHost host("black");
    auto* page = host.add<QWidget>("widget1");
    auto* icon = host.add<SvgIconLabel>("v2-menu-icon", "icon-state", "active");
    auto* panel = host.add<QFrame>("standby-main-panel");
    ASSERT_EQ(centreOf(page), QColor("#111111"));
    ASSERT_EQ(icon->iconColor(), QColor("#3b82f6"));

    host.window->setStyleSheet(looktest::themeSheet("blue"));
    EXPECT_EQ(centreOf(page), QColor("#002170"));
    EXPECT_EQ(icon->iconColor(), QColor("#FFD166"));
    EXPECT_EQ(centreOf(panel), QColor("#06308b"));
}

} // namespace

#include "theme_style_sheet_test.moc"
