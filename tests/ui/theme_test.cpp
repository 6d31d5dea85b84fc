// The two themes: each sheet styles every class it names without a warning,
// both style the same selectors, and every class the pages use has a rule.
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
#include <QVariant>
#include <gtest/gtest.h>

#include <memory>

// Stands in for the slider page, whose drawn colours come from the sheet.
class SliderColoursProbe : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor sliderTrackColor MEMBER colour)
    Q_PROPERTY(QColor sliderTrackBorderColor MEMBER colour)
    Q_PROPERTY(QColor sliderFillColor MEMBER colour)
    Q_PROPERTY(QColor sliderTickColor MEMBER colour)
    Q_PROPERTY(QColor sliderPassedTickColor MEMBER colour)
    Q_PROPERTY(QColor sliderHandleFillColor MEMBER colour)
    Q_PROPERTY(QColor sliderHandleBorderColor MEMBER colour)

public:
    using QWidget::QWidget;
    QColor colour;
};

namespace {

// A widget of the selector's own type, carrying `className`.
QWidget* addStyled(QWidget* window, const QString& type, const QString& className)
{
    QWidget* widget = type == "QLabel"                ? new SvgIconLabel(window)
                      : type == "QPushButton"         ? new QPushButton(window)
                      : type == "QProgressBar"        ? new QProgressBar(window)
                      : type == "QSlider"             ? new QSlider(window)
                      : type == "QFrame"              ? new QFrame(window)
                      : className == "v2-slider-page" ? new SliderColoursProbe(window)
                                                      : new QWidget(window);
    widget->setProperty("class", className);
    widget->setAttribute(Qt::WA_StyledBackground);
    widget->resize(80, 40);
    widget->ensurePolished();
    return widget;
}

QSet<QString> selectorsOf(const QString& sheet)
{
    QString text = sheet;
    text.remove(QRegularExpression(QStringLiteral(R"(/\*.*?\*/)"),
                                   QRegularExpression::DotMatchesEverythingOption));
    text.replace(QRegularExpression(QStringLiteral(R"(\{[^}]*\})")), QStringLiteral(","));
    QSet<QString> selectors;
    for (const QString& selector : text.split(',', Qt::SkipEmptyParts))
        if (!selector.simplified().isEmpty())
            selectors << selector.simplified();
    return selectors;
}

class ThemeSheet : public ::testing::TestWithParam<QString> {};

TEST_P(ThemeSheet, StylesEveryClassItNamesWithoutAWarningAndABrokenSheetWouldWarn)
{
    const QString sheet = looktest::themeSheet(GetParam());
    testsupport::MessageCapture capture;
    QWidget window;
    window.resize(640, 172);
    window.setStyleSheet(sheet);
    int styled = 0;
    const QRegularExpression rule(QStringLiteral(R"re((\w+)\[class="([^"]+)"\])re"));
    for (auto match = rule.globalMatch(sheet); match.hasNext(); ++styled) {
        const QRegularExpressionMatch m = match.next();
        addStyled(&window, m.captured(1), m.captured(2));
    }
    window.show();
    window.grab();
    EXPECT_GT(styled, 100);
    EXPECT_TRUE(capture.warnings().isEmpty()) << capture.warnings().join('\n').toStdString();

    QWidget broken;
    broken.setStyleSheet(sheet + QStringLiteral("QLabel[class=\"x\" { color: red; }"));
    broken.ensurePolished();
    EXPECT_FALSE(capture.warnings().isEmpty()) << "the warning check above sees nothing";
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemeSheet, ::testing::ValuesIn(looktest::kThemes),
                         [](const auto& info) { return info.param.toStdString(); });

TEST(Themes, BothStyleTheSameSelectors)
{
    const QSet<QString> black = selectorsOf(looktest::themeSheet("black"));
    const QSet<QString> blue = selectorsOf(looktest::themeSheet("blue"));
    EXPECT_GT(black.size(), 150);
    for (const QString& selector : black - blue)
        ADD_FAILURE() << "only in black: " << selector.toStdString();
    for (const QString& selector : blue - black)
        ADD_FAILURE() << "only in blue: " << selector.toStdString();
}

TEST(Themes, EveryClassThePagesUseHasARule)
{
    // Classes that take their parent's look on purpose.
    const QSet<QString> unstyled{"ctr-btn-label",    "status-dec-icon",
                                 "status-live-icon", "status-net-ele",
                                 "status-rec-icon",  "v2-p2-status-label-inactive"};
    const QString sheet = looktest::themeSheet("black");
    const QRegularExpression classLiteral(QStringLiteral(
        R"re("((?:v2|status|statusbar|standby|dynamic|confirm)-[a-z0-9-]+|navdots?)")re"));
    int seen = 0;
    for (QDirIterator it(QStringLiteral(PANEL_SOURCE_DIR "/src"), {"*.cpp", "*.h"}, QDir::Files,
                         QDirIterator::Subdirectories);
         it.hasNext();) {
        QFile source(it.next());
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        for (auto m = classLiteral.globalMatch(QString::fromUtf8(source.readAll())); m.hasNext();) {
            const QString className = m.next().captured(1);
            ++seen;
            EXPECT_TRUE(unstyled.contains(className)
                        || sheet.contains(QStringLiteral("[class=\"%1\"]").arg(className)))
                << className.toStdString() << " in " << source.fileName().toStdString();
        }
    }
    EXPECT_GT(seen, 50);
}

} // namespace

#include "theme_test.moc"
