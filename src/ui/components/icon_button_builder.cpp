#include "ui/components/icon_button_builder.h"

#include "ui/svg_icon_label.h"

#include <QLabel>
#include <QPushButton>
#include <QVariant>

IconButtonParts createIconButton(QWidget* parent, const QString& svgPath, const IconButtonLook& look)
{
    IconButtonParts parts;
    parts.button = new QPushButton(parent);
    parts.button->setProperty("class", look.buttonClass);
    parts.button->setFixedSize(look.buttonSize);

    parts.icon = createSvgIconLabel(parts.button, svgPath, look.iconSize, look.iconClass);
    parts.icon->setProperty("icon-state", "normal");
    parts.icon->move(look.iconPos);

    parts.label = new QLabel(parts.button);
    parts.label->setProperty("class", look.labelClass);
    parts.label->setAlignment(Qt::AlignCenter);
    parts.label->setGeometry(look.labelRect);
    return parts;
}

void centreButtonRow(QWidget* page, const QVector<QPushButton*>& buttons, int buttonWidth, int gap)
{
    if (!page)
        return;
    const int n = buttons.size();
    const int rowWidth = n * buttonWidth + (n - 1) * gap;
    int x = (page->width() - rowWidth) / 2;
    const int y = (page->height() - 122) / 2;
    for (QPushButton* button : buttons) {
        if (button)
            button->move(x, y);
        x += buttonWidth + gap;
    }
}
