// Every picture the panel can ask for is compiled in, is drawn the way the
// tint needs it, and every resource path written in the code resolves.
#include "theme_test_kit.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QSvgRenderer>
#include <gtest/gtest.h>

namespace {

// The panel's icon catalogue, folder by folder.
QStringList iconCatalogue()
{
    const QList<QPair<QString, QString>> folders{
        {"", "logo.png"},
        {"QR", "android.jpg android_ch.jpg android_icon.svg apple.jpg arrows.svg ios.svg wite.svg "
               "harvelin.svg"},
        {"camera_settings", "lcd_bright.svg lcd_lock.svg lcd_sleep.svg ptz_proto.svg tally.svg "
                            "tally_light.svg tally_mode.svg"},
        {"decode_settings", "rtmp_switch.svg"},
        {"general",
         "edge_swipe_inward.svg failed.svg left.svg left_out.svg loading.svg long_press.svg "
         "right.svg "
         "right_out.svg succeed.svg swipe_down.svg swipe_left_right.svg swipe_up.svg warning.svg"},
        {"mainmenu", "audio.svg decode.svg network.svg ptz.svg stream.svg system.svg video.svg"},
        {"media_settings", "disk.svg disk_speed.svg ndi_quality.svg ndi_switch.svg srt_switch.svg"},
        {"network_settings", "ap.svg bt.svg btyindao.svg wlan.svg"},
        {"shortcut", "pause.svg record.svg resume.svg stop.svg"},
        {"standby", "standby.svg wakeup.svg"},
        {"statusbar", "ap_active.svg ap_inactive.svg dec.svg eth_active.svg eth_inactive.svg "
                      "live.svg lock.svg nas_0.svg "
                      "nas_30.svg nas_60.svg nas_full.svg nas_unmount.svg rec.svg rec_pause.svg "
                      "sdcard_0.svg sdcard_30.svg "
                      "sdcard_60.svg sdcard_full.svg sdcard_unmount.svg udisk_0.svg udisk_30.svg "
                      "udisk_60.svg udisk_full.svg "
                      "udisk_unmount.svg wifi_active.svg wifi_inactive.svg wifi_off.svg"},
        {"statusp1", "cpu.svg devname.svg mem.svg temp.svg"},
        {"statusp2", "acodec.svg bitrate.svg dec_source.svg format.svg loop.svg mute.svg sound.svg "
                     "vcodec.svg vi.svg "
                     "vo.svg"},
        {"statusp3", "audio_source.svg sample_rate.svg"},
        {"system_settings",
         "dcout.svg fanmode.svg language.svg reboot.svg reset.svg shutdown.svg standby.svg "
         "theme.svg time.svg usbmode.svg version.svg workmode.svg"},
        {"upgrade", "logo.png upgrade0.png upgrade100.png upgrade40.png upgrade50.png "
                    "upgrade60.png upgrade70.png "
                    "upgrade80.png upgrade90.png waring.svg"},
        {"video_settings", "ai.svg gsk.svg"},
    };
    QStringList paths;
    for (const auto& folder : folders) {
        const QString prefix = folder.first.isEmpty()
                                   ? QStringLiteral(":/icons/")
                                   : QStringLiteral(":/icons/%1/").arg(folder.first);
        for (const QString& name : folder.second.split(' ', Qt::SkipEmptyParts))
            paths << prefix + name;
    }
    return paths;
}

// Pictures shown in their own colours rather than tinted.
bool isFullColour(const QString& path)
{
    static const QSet<QString> drawnAsTheyAre{":/icons/QR/ios.svg", ":/icons/QR/android_icon.svg",
                                              ":/icons/QR/harvelin.svg", ":/icons/QR/arrows.svg"};
    return drawnAsTheyAre.contains(path) || !path.endsWith(QLatin1String(".svg"));
}

QStringList compiledIcons()
{
    QStringList found;
    QDirIterator it(QStringLiteral(":/icons"), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        found << it.next();
    return found;
}

QImage renderSvg(const QString& path, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(path);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

class IconResources : public ::testing::Test {
protected:
    static void SetUpTestSuite() { initPanelResources(); }
};

TEST_F(IconResources, CatalogueAndCompiledSetAreTheSame)
{
    const QStringList catalogue = iconCatalogue();
    ASSERT_EQ(catalogue.size(), 119);
    const QStringList compiled = compiledIcons();
    for (const QString& path : catalogue)
        EXPECT_TRUE(compiled.contains(path)) << "missing " << path.toStdString();
    for (const QString& path : compiled)
        EXPECT_TRUE(catalogue.contains(path)) << "not in the catalogue " << path.toStdString();
}

TEST_F(IconResources, RepeatedResourceInitialisationIsHarmless)
{
    initPanelResources();
    initPanelResources();
    EXPECT_TRUE(QFile::exists(QStringLiteral(":/icons/logo.png")));
    EXPECT_TRUE(QFile::exists(QStringLiteral(":/themes/black.qss")));
}

TEST_F(IconResources, MasksAreOneColourOnTransparentGround)
{
    const QSize size(48, 48);
    for (const QString& path : iconCatalogue()) {
        if (isFullColour(path))
            continue;
        SCOPED_TRACE(path.toStdString());
        ASSERT_TRUE(QSvgRenderer(path).isValid());
        const QPixmap picture = QPixmap::fromImage(renderSvg(path, size));
        const looktest::InkSummary first = looktest::inkOf(picture);
        ASSERT_TRUE(first.firstSolid.isValid()) << "no fully opaque stroke";
        const looktest::InkSummary ink = looktest::inkOf(picture, first.firstSolid);
        EXPECT_EQ(ink.offColourPixels, 0);
        // A mask is a drawing, not a filled tile: most of the ground stays clear.
        EXPECT_LT(ink.inkedPixels, size.width() * size.height() * 6 / 10);
    }
}

TEST_F(IconResources, FullColourPicturesLoad)
{
    for (const QString& path : iconCatalogue()) {
        if (!isFullColour(path))
            continue;
        SCOPED_TRACE(path.toStdString());
        if (path.endsWith(QLatin1String(".svg"))) {
            ASSERT_TRUE(QSvgRenderer(path).isValid());
            EXPECT_GT(
                looktest::inkOf(QPixmap::fromImage(renderSvg(path, QSize(64, 64)))).inkedPixels, 0);
        } else {
            EXPECT_FALSE(QImage(path).isNull());
        }
    }
}

TEST_F(IconResources, UpgradeFramesFitTheProgressAreaAndDiffer)
{
    const QStringList levels{"0", "40", "50", "60", "70", "80", "90", "100"};
    QList<QImage> frames;
    for (const QString& level : levels) {
        const QImage frame(QStringLiteral(":/icons/upgrade/upgrade%1.png").arg(level));
        ASSERT_FALSE(frame.isNull()) << level.toStdString();
        // The upgrade screen shows each frame in a 330 by 100 area.
        EXPECT_EQ(frame.size(), QSize(330, 100));
        for (const QImage& earlier : frames)
            EXPECT_NE(frame, earlier)
                << "frame " << level.toStdString() << " repeats an earlier one";
        frames << frame;
    }
}

TEST_F(IconResources, AppDownloadCodesAreSquareAndDistinct)
{
    const QImage android(QStringLiteral(":/icons/QR/android.jpg"));
    const QImage androidChina(QStringLiteral(":/icons/QR/android_ch.jpg"));
    const QImage apple(QStringLiteral(":/icons/QR/apple.jpg"));
    for (const QImage* code : {&android, &androidChina, &apple}) {
        ASSERT_FALSE(code->isNull());
        EXPECT_EQ(code->width(), code->height());
        // A scannable code is roughly half dark modules on a light quiet zone.
        int dark = 0;
        for (int y = 0; y < code->height(); ++y)
            for (int x = 0; x < code->width(); ++x)
                dark += qGray(code->pixel(x, y)) < 128 ? 1 : 0;
        const double share = double(dark) / (code->width() * code->height());
        EXPECT_GT(share, 0.25);
        EXPECT_LT(share, 0.65);
        EXPECT_GT(qGray(code->pixel(1, 1)), 200);
    }
    EXPECT_NE(android, androidChina);
    EXPECT_NE(android, apple);
}

// Resource paths written anywhere in the code, e.g. ":/icons/statusbar/%1_%2.svg".
QStringList resourceLiteralsInSources()
{
    static const QRegularExpression literal(
        QString::fromLatin1(R"re(":/(?:icons|themes)/[^"]*")re"));
    QStringList literals;
    QDirIterator it(QStringLiteral(PANEL_SOURCE_DIR "/src"), {"*.cpp", "*.h", "*.inc"}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile source(it.next());
        if (!source.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(source.readAll());
        auto matches = literal.globalMatch(text);
        while (matches.hasNext()) {
            const QString quoted = matches.next().captured(0);
            literals << quoted.mid(1, quoted.size() - 2);
        }
    }
    literals.removeDuplicates();
    return literals;
}

// A literal with holes ("%1", or "<name>" in comments) must match at least one
// compiled resource; a literal ending in '/' is a folder that the code
// completes at run time.
bool literalResolves(const QString& literal, const QStringList& resources)
{
    if (literal.endsWith('/'))
        return QDir(literal).exists();
    static const QRegularExpression hole(QString::fromLatin1(R"(%\d|<[a-z_]+>)"));
    if (!literal.contains(hole))
        return QFile::exists(literal);
    QStringList pieces;
    for (const QString& piece : literal.split(hole))
        pieces << QRegularExpression::escape(piece);
    const QRegularExpression wildcard(
        QRegularExpression::anchoredPattern(pieces.join(QStringLiteral("[A-Za-z0-9_]+"))));
    for (const QString& resource : resources)
        if (wildcard.match(resource).hasMatch())
            return true;
    return false;
}

TEST_F(IconResources, EveryPathWrittenInTheCodeResolves)
{
    QStringList resources = compiledIcons();
    resources << QStringLiteral(":/themes/black.qss") << QStringLiteral(":/themes/blue.qss");
    const QStringList literals = resourceLiteralsInSources();
    for (const QString& literal : literals)
        EXPECT_TRUE(literalResolves(literal, resources)) << "unresolved " << literal.toStdString();
}

TEST_F(IconResources, LiteralCheckRejectsWhatDoesNotExist)
{
    const QStringList resources = compiledIcons();
    EXPECT_TRUE(literalResolves(QStringLiteral(":/icons/statusbar/%1_%2.svg"), resources));
    EXPECT_TRUE(literalResolves(QStringLiteral(":/icons/upgrade/"), resources));
    EXPECT_FALSE(literalResolves(QStringLiteral(":/icons/statusbar/%1_%2.png"), resources));
    EXPECT_FALSE(literalResolves(QStringLiteral(":/icons/nowhere/"), resources));
    EXPECT_FALSE(literalResolves(QStringLiteral(":/icons/general/warning.png"), resources));
}

} // namespace
