#include "ui/components/submenu_button_group_component.h"

#include "ui/components/icon_button_builder.h"
#include "ui/components/style_state.h"
#include "ui/svg_icon_label.h"

#include <QLabel>
#include <QPushButton>
#include <QVariant>

namespace SubmenuButtonGroupComponent {

SubmenuButtonItem createButton(QWidget* parent, const QString& svgPath, const QSize& iconSize)
{
    const IconButtonLook look{"v2-sys-card-btn",   QSize(kButtonWidth, kButtonHeight),
                              "v2-sys-card-icon",  iconSize,
                              QPoint(63, 22),      "v2-sys-card-label",
                              QRect(0, 66, kButtonWidth, 24)};
    const IconButtonParts parts = createIconButton(parent, svgPath, look);
    return {parts.button, parts.icon, parts.label};
}

SubmenuButtonItem createButton(QWidget* parent, const QString& svgPath, QPushButton** button,
                               QLabel** icon, QLabel** label)
{
    return createButton(parent, svgPath, QSize(28, 28), button, icon, label);
}

SubmenuButtonItem createButton(QWidget* parent, const QString& svgPath, const QSize& iconSize,
                               QPushButton** button, QLabel** icon, QLabel** label)
{
    const SubmenuButtonItem item = createButton(parent, svgPath, iconSize);
    if (button)
        *button = item.button;
    if (icon)
        *icon = item.icon;
    if (label)
        *label = item.label;
    return item;
}

void layoutButtons(QWidget* page, const QVector<SubmenuButtonItem>& items)
{
    QVector<QPushButton*> buttons;
    for (const SubmenuButtonItem& item : items)
        buttons.append(item.button);
    centreButtonRow(page, buttons, kButtonWidth, kGap);
}

void layoutButtons(QWidget* page, std::initializer_list<SubmenuButtonItem> items)
{
    layoutButtons(page, QVector<SubmenuButtonItem>(items));
}

void setItemState(const SubmenuButtonItem& item, const QString& state, int enabled)
{
    if (item.button) {
        if (enabled >= 0)
            item.button->setEnabled(enabled != 0);
        setStyleProperty(item.button, "btn-state", state);
    }
    if (item.icon) {
        item.icon->setProperty("icon-state", state);
        refreshStyledIcon(item.button, item.icon, item.label);
    }
    if (item.label)
        setStyleProperty(item.label, "text-state", state);
}

} // namespace SubmenuButtonGroupComponent
