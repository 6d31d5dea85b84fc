// Renders every compiled icon in both themes into
// <build>/contact_sheet_<theme>.png, for a designer's look at the whole set:
// each cell shows the icon tinted white at card size, tinted "active" at
// status size, and the file as drawn. The test itself checks that every icon
// produces a picture in each of those forms.
#include "theme_test_kit.h"
#include "ui/svg_icon_label.h"

#include <QDirIterator>
#include <QLabel>
#include <QVariant>
#include <gtest/gtest.h>

namespace {

constexpr int kColumns = 8;
const QSize kCell(120, 100);

QStringList compiledIcons()
{
    QStringList found;
    QDirIterator it(QStringLiteral(":/icons"), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        found << it.next();
    found.sort();
    return found;
}

bool hasPicture(const QLabel* label)
{
    const QPixmap shown = label->pixmap(Qt::ReturnByValue);
    return !shown.isNull() && looktest::inkOf(shown).inkedPixels > 0;
}

// A plain label with the file as drawn, scaled to fit `box` keeping its shape.
QLabel* asDrawn(QWidget* parent, const QString& path, const QRect& box)
{
    auto* label = new QLabel(parent);
    label->setGeometry(box);
    label->setAlignment(Qt::AlignCenter);
    label->setPixmap(
        QPixmap(path).scaled(box.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    return label;
}

class IconContactSheet : public ::testing::TestWithParam<QString> {};

TEST_P(IconContactSheet, EveryIconRendersInTheTheme)
{
    const QStringList icons = compiledIcons();
    ASSERT_FALSE(icons.isEmpty());
    const int rows = (icons.size() + kColumns - 1) / kColumns;

    QWidget sheet;
    sheet.setStyleSheet(looktest::themeSheet(GetParam()));
    sheet.setAttribute(Qt::WA_StyledBackground);
    sheet.setProperty("class", QStringLiteral("widget1"));
    sheet.resize(kCell.width() * kColumns, kCell.height() * rows);

    for (int i = 0; i < icons.size(); ++i) {
        const QString& path = icons.at(i);
        SCOPED_TRACE(path.toStdString());
        const QPoint origin((i % kColumns) * kCell.width(), (i / kColumns) * kCell.height());
        const bool svg = path.endsWith(QLatin1String(".svg"));
        if (svg) {
            QLabel* card =
                createSvgIconLabel(&sheet, path, QSize(40, 40), QStringLiteral("v2-sys-card-icon"));
            card->move(origin + QPoint(12, 14));
            QLabel* active =
                createSvgIconLabel(&sheet, path, QSize(24, 24), QStringLiteral("v2-p1-icon"));
            active->setProperty("icon-state", QStringLiteral("active"));
            active->move(origin + QPoint(60, 10));
            refreshStyledIcon(nullptr, card, nullptr);
            refreshStyledIcon(nullptr, active, nullptr);
            EXPECT_TRUE(hasPicture(card));
            EXPECT_TRUE(hasPicture(active));
            EXPECT_TRUE(
                hasPicture(asDrawn(&sheet, path, QRect(origin + QPoint(60, 40), QSize(24, 24)))));
        } else {
            EXPECT_TRUE(
                hasPicture(asDrawn(&sheet, path, QRect(origin + QPoint(6, 6), QSize(108, 64)))));
        }
        auto* caption = new QLabel(path.mid(8), &sheet); // without ":/icons/"
        caption->setProperty("class", QStringLiteral("v2-shortcut-status"));
        caption->setGeometry(QRect(origin + QPoint(4, 76), QSize(kCell.width() - 8, 18)));
    }

    const QString file = QStringLiteral(PANEL_BINARY_DIR "/contact_sheet_%1.png").arg(GetParam());
    EXPECT_TRUE(sheet.grab().save(file)) << file.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Themes, IconContactSheet, ::testing::ValuesIn(looktest::themeNames()),
                         [](const ::testing::TestParamInfo<QString>& info) {
                             return info.param.toStdString();
                         });

} // namespace
