// SvgIconLabel: a monochrome mask drawn once it has a size, in the colour the
// style gives it, and re-styled when its state changes.
#include "theme_test_kit.h"
#include "ui/svg_icon_label.h"

#include <QPushButton>
#include <QVariant>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

const QString kSquare = QStringLiteral(":/icons/shortcut/stop.svg");

QPixmap shown(const QLabel* label)
{
    return label->pixmap(Qt::ReturnByValue);
}

QColor centreOf(const QPixmap& pixmap)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    return image.isNull() ? QColor() : image.pixelColor(image.width() / 2, image.height() / 2);
}

class SvgIconLabelTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { initPanelResources(); }

    SvgIconLabel* icon(const QString& path, QSize size = QSize(24, 24))
    {
        auto* label = new SvgIconLabel(host.get());
        label->resize(size);
        label->setSvgPath(path);
        return label;
    }

    std::unique_ptr<QWidget> host = std::make_unique<QWidget>();
};

TEST_F(SvgIconLabelTest, ZeroSizeWaitsForTheFirstResize)
{
    host->show(); // resize events reach only shown widgets
    SvgIconLabel* label = icon(kSquare, QSize(0, 0));
    label->show();
    EXPECT_EQ(label->svgPath(), kSquare);
    EXPECT_TRUE(shown(label).isNull());
    label->resize(24, 24);
    EXPECT_EQ(shown(label).size(), QSize(24, 24));
}

class StyledIconTest : public SvgIconLabelTest {
protected:
    void SetUp() override { host->setStyleSheet(looktest::themeSheet("black")); }

    template <class W> W* styled(const char* className, const char* property, const char* state)
    {
        W* widget = new W(host.get());
        widget->setProperty("class", className);
        widget->setProperty(property, state);
        widget->resize(76, 76);
        if (auto* label = qobject_cast<SvgIconLabel*>(widget))
            label->setSvgPath(kSquare);
        widget->ensurePolished();
        return widget;
    }
};

TEST_F(StyledIconTest, NewStateTakesEffectOnRefreshForIconButtonAndText)
{
    // The icon's tint, the button's face, the text's colour.
    auto looks = [](SvgIconLabel* icon, QPushButton* button, QLabel* text) {
        return std::vector<QColor>{centreOf(shown(icon)), centreOf(button->grab()),
                                   text->palette().color(QPalette::WindowText)};
    };
    auto* icon = styled<SvgIconLabel>("v2-sys-card-icon", "icon-state", "normal");
    auto* button = styled<QPushButton>("v2-record-btn", "state", "normal");
    auto* text = styled<QLabel>("v2-sys-card-label", "text-state", "normal");
    const std::vector<QColor> before = looks(icon, button, text);
    icon->setProperty("icon-state", "recording");
    button->setProperty("state", "stop");
    text->setProperty("text-state", "disabled");
    EXPECT_EQ(looks(icon, button, text), before) << "changed before the re-polish";

    refreshStyledIcon(button, icon, text);
    const std::vector<QColor> after = looks(icon, button, text);
    EXPECT_EQ(after, looks(styled<SvgIconLabel>("v2-sys-card-icon", "icon-state", "recording"),
                           styled<QPushButton>("v2-record-btn", "state", "stop"),
                           styled<QLabel>("v2-sys-card-label", "text-state", "disabled")));
    for (int part = 0; part < 3; ++part)
        EXPECT_NE(after[part], before[part]) << "part " << part << " looks alike in both states";
    EXPECT_EQ(icon->iconColor(), after[0]);

    // A refresh draws even when the colour stays, e.g. after the label was cleared.
    icon->clear();
    refreshStyledIcon(nullptr, icon, nullptr);
    EXPECT_EQ(centreOf(shown(icon)), after[0]);
}

} // namespace
