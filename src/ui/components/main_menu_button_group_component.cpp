#include "ui/components/main_menu_button_group_component.h"

#include "ui/components/icon_button_builder.h"

namespace MainMenuButtonGroupComponent {

MainMenuButtonItem createButton(QWidget* parent, const QString& svgPath)
{
    static const IconButtonLook look{"v2-menu-btn",   QSize(kButtonWidth, kButtonHeight),
                                     "v2-menu-icon",  QSize(48, 48),
                                     QPoint(46, 15),  "v2-menu-label",
                                     QRect(0, 71, kButtonWidth, 24)};
    const IconButtonParts parts = createIconButton(parent, svgPath, look);
    return {parts.button, parts.icon, parts.label};
}

void layoutButtons(QWidget* page, const QVector<MainMenuButtonItem>& items)
{
    QVector<QPushButton*> buttons;
    for (const MainMenuButtonItem& item : items)
        buttons.append(item.button);
    centreButtonRow(page, buttons, kButtonWidth, kGap);
}

void layoutButtons(QWidget* page, std::initializer_list<MainMenuButtonItem> items)
{
    layoutButtons(page, QVector<MainMenuButtonItem>(items));
}

} // namespace MainMenuButtonGroupComponent
