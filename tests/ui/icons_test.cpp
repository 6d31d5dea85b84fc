// Every picture compiled into the panel draws, masks in one colour on a clear
// ground so that a theme can tint them, and every resource path written in
// the code resolves.
#include "theme_test_kit.h"

#include <QDir>
#include <QDirIterator>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <gtest/gtest.h>

namespace {

QStringList compiledResources()
{
    initPanelResources();
    QStringList found{QStringLiteral(":/themes/black.qss"), QStringLiteral(":/themes/blue.qss")};
    for (QDirIterator it(QStringLiteral(":/icons"), QDir::Files, QDirIterator::Subdirectories);
         it.hasNext();)
        found << it.next();
    return found;
}

TEST(Icons, EveryIconDrawsAndMasksAreOneColourOnAClearGround)
{
    // Pictures shown in their own colours rather than tinted.
    const QStringList fullColour{":/icons/QR/ios.svg", ":/icons/QR/android_icon.svg",
                                 ":/icons/QR/harvelin.svg", ":/icons/QR/arrows.svg"};
    const QSize size(48, 48);
    int icons = 0;
    for (const QString& path : compiledResources().filter(QStringLiteral(":/icons/"))) {
        SCOPED_TRACE(path.toStdString());
        ++icons;
        if (!path.endsWith(QLatin1String(".svg"))) {
            EXPECT_FALSE(QImage(path).isNull());
            continue;
        }
        QSvgRenderer renderer(path);
        ASSERT_TRUE(renderer.isValid());
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        renderer.render(&painter);
        painter.end();
        const QPixmap picture = QPixmap::fromImage(image);
        const looktest::InkSummary ink = looktest::inkOf(picture);
        EXPECT_GT(ink.inkedPixels, 0);
        if (fullColour.contains(path))
            continue;
        ASSERT_TRUE(ink.firstSolid.isValid()) << "no fully opaque stroke";
        EXPECT_EQ(looktest::inkOf(picture, ink.firstSolid).offColourPixels, 0);
        EXPECT_LT(ink.inkedPixels, size.width() * size.height() * 6 / 10) << "a tile, not a mask";
    }
    EXPECT_GT(icons, 100);
}

// A literal with holes ("%1", or "<name>" in comments) must match a compiled
// resource; one ending in '/' is a folder that the code completes.
bool resolves(const QString& literal, const QStringList& resources)
{
    if (literal.endsWith('/'))
        return QDir(literal).exists();
    static const QRegularExpression hole(QStringLiteral(R"(%\d|<[a-z_]+>)"));
    QStringList pieces;
    for (const QString& piece : literal.split(hole))
        pieces << QRegularExpression::escape(piece);
    const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(pieces.join(QStringLiteral("[A-Za-z0-9_]+"))));
    return !resources.filter(pattern).isEmpty();
}

TEST(Icons, EveryResourcePathWrittenInTheCodeResolves)
{
    const QStringList resources = compiledResources();
    EXPECT_TRUE(resolves(":/icons/statusbar/%1_%2.svg", resources));
    EXPECT_FALSE(resolves(":/icons/statusbar/%1_%2.png", resources));
    EXPECT_FALSE(resolves(":/icons/nowhere/", resources));

    static const QRegularExpression literal(QStringLiteral(R"re(":/(?:icons|themes)/[^"]*")re"));
    int checked = 0;
    for (QDirIterator it(QStringLiteral(PANEL_SOURCE_DIR "/src"), {"*.cpp", "*.h", "*.inc"},
                         QDir::Files, QDirIterator::Subdirectories);
         it.hasNext();) {
        QFile source(it.next());
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        for (auto match = literal.globalMatch(QString::fromUtf8(source.readAll()));
             match.hasNext();) {
            const QString quoted = match.next().captured(0);
            ++checked;
            EXPECT_TRUE(resolves(quoted.mid(1, quoted.size() - 2), resources))
                << quoted.toStdString() << " in " << source.fileName().toStdString();
        }
    }
    EXPECT_GT(checked, 20);
}

} // namespace
