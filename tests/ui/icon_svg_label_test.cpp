// SvgIconLabel: tinting by the style, the shared pixmap cache, and the
// helpers that pages use to set and re-style icons.
#include "support/qt_capture.h"
#include "theme_test_kit.h"
#include "ui/svg_icon_label.h"

#include <QPushButton>
#include <QWidget>
#include <gtest/gtest.h>

#include <memory>

namespace {

const QString kSolidSquare = QStringLiteral(":/icons/shortcut/stop.svg");
const QString kRecordDot = QStringLiteral(":/icons/statusbar/rec.svg");

QColor centreColour(const QLabel* label)
{
    const QPixmap pixmap = label->pixmap(Qt::ReturnByValue);
    if (pixmap.isNull())
        return QColor();
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

qint64 pixmapIdentity(const QLabel* label)
{
    // Copies of one pixmap share its data and so its cache key.
    const QPixmap pixmap = label->pixmap(Qt::ReturnByValue);
    return pixmap.isNull() ? 0 : pixmap.cacheKey();
}

class SvgIconLabelTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { initPanelResources(); }
    std::unique_ptr<QWidget> host = std::make_unique<QWidget>();
};

TEST_F(SvgIconLabelTest, StartsWhiteAndEmpty)
{
    SvgIconLabel label(host.get());
    EXPECT_EQ(label.iconColor(), QColor(Qt::white));
    EXPECT_TRUE(label.svgPath().isEmpty());
    EXPECT_TRUE(label.testAttribute(Qt::WA_StyledBackground));
}

TEST_F(SvgIconLabelTest, DrawsTheMaskInTheIconColour)
{
    SvgIconLabel label(host.get());
    label.resize(32, 32);
    label.setIconColor(QColor("#123456"));
    label.setSvgPath(kRecordDot); // drawn red in the file
    ASSERT_FALSE(label.pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(label.pixmap(Qt::ReturnByValue).size(), QSize(32, 32));
    const looktest::InkSummary ink =
        looktest::inkOf(label.pixmap(Qt::ReturnByValue), QColor("#123456"));
    EXPECT_GT(ink.inkedPixels, 0);
    EXPECT_EQ(ink.offColourPixels, 0);
}

TEST_F(SvgIconLabelTest, ZeroSizeDefersRenderingToTheFirstResize)
{
    host->show(); // resize events reach only widgets that are shown
    SvgIconLabel label(host.get());
    label.resize(0, 0);
    label.show();
    label.setSvgPath(kSolidSquare);
    EXPECT_EQ(label.svgPath(), kSolidSquare);
    EXPECT_TRUE(label.pixmap(Qt::ReturnByValue).isNull());

    label.resize(24, 24);
    ASSERT_FALSE(label.pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(label.pixmap(Qt::ReturnByValue).size(), QSize(24, 24));
}

TEST_F(SvgIconLabelTest, EqualPathSizeAndColourShareOneRender)
{
    SvgIconLabel first(host.get());
    SvgIconLabel second(host.get());
    for (SvgIconLabel* label : {&first, &second}) {
        label->resize(30, 30);
        label->setIconColor(QColor("#abcdef"));
        label->setSvgPath(kSolidSquare);
    }
    ASSERT_NE(pixmapIdentity(&first), 0);
    EXPECT_EQ(pixmapIdentity(&first), pixmapIdentity(&second));

    second.setIconColor(QColor("#fedcba"));
    EXPECT_NE(pixmapIdentity(&first), pixmapIdentity(&second));
    second.resize(31, 30);
    second.setIconColor(QColor("#abcdef"));
    EXPECT_NE(pixmapIdentity(&first), pixmapIdentity(&second)) << "the size is part of the key";
}

TEST_F(SvgIconLabelTest, ThemeChangeBackAndForthReusesEarlierRenders)
{
    SvgIconLabel label(host.get());
    label.resize(26, 26);
    label.setSvgPath(kSolidSquare);
    const qint64 white = pixmapIdentity(&label);
    label.setIconColor(QColor("#FFD166"));
    EXPECT_NE(pixmapIdentity(&label), white);
    label.setIconColor(Qt::white);
    EXPECT_EQ(pixmapIdentity(&label), white);
}

TEST_F(SvgIconLabelTest, WrongPathLeavesTheShownPixmap)
{
    SvgIconLabel label(host.get());
    label.resize(24, 24);
    label.setSvgPath(kSolidSquare);
    const qint64 shown = pixmapIdentity(&label);
    ASSERT_NE(shown, 0);

    testsupport::MessageCapture capture;
    label.setSvgPath(QStringLiteral(":/icons/general/no_such_icon.svg"));
    EXPECT_EQ(pixmapIdentity(&label), shown);
    EXPECT_EQ(label.svgPath(), QStringLiteral(":/icons/general/no_such_icon.svg"));
    EXPECT_TRUE(capture.warnings().isEmpty()) << capture.warnings().join('\n').toStdString();
}

TEST_F(SvgIconLabelTest, CreateSetsClassSizeAndPath)
{
    QLabel* created =
        createSvgIconLabel(host.get(), kSolidSquare, QSize(22, 20), QStringLiteral("v2-p1-icon"));
    auto* label = qobject_cast<SvgIconLabel*>(created);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->parent(), host.get());
    EXPECT_EQ(label->property("class").toString(), QStringLiteral("v2-p1-icon"));
    EXPECT_EQ(label->minimumSize(), QSize(22, 20));
    EXPECT_EQ(label->maximumSize(), QSize(22, 20));
    EXPECT_EQ(label->svgPath(), kSolidSquare);
    ASSERT_FALSE(label->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(label->pixmap(Qt::ReturnByValue).size(), QSize(22, 20));

    QLabel* unclassed = createSvgIconLabel(host.get(), kSolidSquare, QSize(8, 8), QString());
    EXPECT_FALSE(unclassed->property("class").isValid());
}

TEST_F(SvgIconLabelTest, SetIconPathTintsSvgLabelsAndShowsPlainLabelsAsDrawn)
{
    SvgIconLabel tinted(host.get());
    tinted.resize(24, 24);
    setSvgIconPath(&tinted, kRecordDot);
    EXPECT_EQ(tinted.svgPath(), kRecordDot);
    EXPECT_EQ(centreColour(&tinted), QColor(Qt::white));

    QLabel plain(host.get());
    setSvgIconPath(&plain, kRecordDot);
    const QColor drawn = centreColour(&plain);
    ASSERT_TRUE(drawn.isValid());
    EXPECT_GT(drawn.red(), 200);
    EXPECT_LT(drawn.green(), 100) << "the file's own red, untinted";

    setSvgIconPath(nullptr, kRecordDot); // must simply do nothing
}

class StyledIconTest : public SvgIconLabelTest {
protected:
    void SetUp() override { host->setStyleSheet(looktest::themeSheet(QStringLiteral("black"))); }

    SvgIconLabel* styledIcon(const QString& className, const QString& iconState)
    {
        auto* icon = static_cast<SvgIconLabel*>(
            createSvgIconLabel(host.get(), kSolidSquare, QSize(24, 24), className));
        icon->setProperty("icon-state", iconState);
        icon->ensurePolished();
        return icon;
    }
};

TEST_F(StyledIconTest, ColourComesFromTheStyleSheet)
{
    SvgIconLabel* icon = styledIcon(QStringLiteral("v2-menu-icon"), QStringLiteral("active"));
    EXPECT_EQ(icon->iconColor(), QColor("#3b82f6"));
    EXPECT_EQ(centreColour(icon), QColor("#3b82f6"));
}

TEST_F(StyledIconTest, StateChangeTakesEffectOnlyAfterRefresh)
{
    SvgIconLabel* icon = styledIcon(QStringLiteral("v2-sys-card-icon"), QStringLiteral("normal"));
    ASSERT_EQ(centreColour(icon), QColor(Qt::white));

    icon->setProperty("icon-state", "recording");
    EXPECT_EQ(centreColour(icon), QColor(Qt::white)) << "no re-polish yet";

    refreshStyledIcon(nullptr, icon, nullptr);
    EXPECT_EQ(icon->iconColor(), QColor("#ef4444"));
    EXPECT_EQ(centreColour(icon), QColor("#ef4444"));
}

TEST_F(StyledIconTest, RefreshRestylesButtonAndTextToo)
{
    QPushButton button(host.get());
    button.setProperty("class", "v2-record-btn");
    button.setProperty("state", "normal");
    QLabel text(host.get());
    text.setProperty("class", "v2-sys-card-label");
    text.setProperty("text-state", "normal");
    button.ensurePolished();
    text.ensurePolished();
    ASSERT_EQ(text.palette().color(QPalette::WindowText), QColor("#ffffff"));

    button.setProperty("state", "stop");
    text.setProperty("text-state", "disabled");
    refreshStyledIcon(&button, nullptr, &text);
    EXPECT_EQ(text.palette().color(QPalette::WindowText), QColor("#6b7280"));
    button.resize(76, 76);
    const QImage face = button.grab().toImage();
    EXPECT_EQ(face.pixelColor(38, 38), QColor("#DC2626"));
}

TEST_F(StyledIconTest, RefreshRedrawsEvenWhenTheColourIsUnchanged)
{
    SvgIconLabel* icon = styledIcon(QStringLiteral("v2-p1-icon"), QStringLiteral("normal"));
    icon->clear(); // e.g. something else reset the label
    refreshStyledIcon(nullptr, icon, nullptr);
    EXPECT_EQ(centreColour(icon), QColor(Qt::white));
}

} // namespace
