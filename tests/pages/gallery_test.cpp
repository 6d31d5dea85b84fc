// Draws the gallery: every page (and full-screen surface) of the panel in both
// themes, as the screen shows it, into $PANEL_GALLERY_DIR as
// <scene>_<theme>.png, with gallery.md, a Markdown table of the pictures whose
// links are relative to the source tree. scripts/gallery.sh runs it into
// docs/screenshots. Without the variable there is nothing to do.
#include "page_test_support.h"
#include "panel_scenes.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTextStream>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

// How many colours a picture has: a drawn screen has many.
int colourCount(const QImage& image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 2)
        for (int x = 0; x < image.width(); x += 2)
            colours.insert(image.pixel(x, y));
    return colours.size();
}

TEST(Gallery, DrawsEveryPageInBothThemes)
{
    const QString folder = qEnvironmentVariable("PANEL_GALLERY_DIR");
    if (folder.isEmpty())
        GTEST_SKIP() << "set PANEL_GALLERY_DIR to draw the gallery";
    ASSERT_TRUE(QDir().mkpath(folder));
    const QDir gallery(QDir(folder).absolutePath());
    const QDir source(QStringLiteral(PANEL_SOURCE_DIR));

    QStringList table{QStringLiteral("| Page | Black theme | Blue theme |"),
                      QStringLiteral("|---|---|---|")};
    for (const PanelScene& scene : panelScenes()) {
        if (!scene.in_gallery)
            continue;
        QString row = QStringLiteral("| `%1` |").arg(scene.name);
        for (const QString theme : {"black", "blue"}) {
            const QImage image = buildScreen(scene, texts(kEnglish), theme)->grab().toImage();
            EXPECT_EQ(image.size(), QSize(640, 172)) << scene.name;
            // The splash is a logo on black; every other screen has far more.
            EXPECT_GT(colourCount(image), 8) << scene.name << " looks empty";
            const QString path =
                gallery.filePath(QStringLiteral("%1_%2.png").arg(scene.name, theme));
            EXPECT_TRUE(image.save(path)) << path;
            row += QStringLiteral(" ![%1, %2](%3) |")
                       .arg(scene.name, theme, source.relativeFilePath(path));
        }
        table << row;
    }
    QFile index(gallery.filePath(QStringLiteral("gallery.md")));
    ASSERT_TRUE(index.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text));
    QTextStream(&index) << table.join(QLatin1Char('\n')) << '\n';
}

} // namespace
