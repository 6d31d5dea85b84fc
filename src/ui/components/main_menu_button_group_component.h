#pragma once

#include <QString>
#include <QVector>

#include <initializer_list>

class QLabel;
class QPushButton;
class QWidget;

// A big main menu button; `icon` and `label` are children of `button`.
struct MainMenuButtonItem {
    QPushButton* button = nullptr;
    QLabel* icon = nullptr;
    QLabel* label = nullptr;
};

// Builds and places the 140 by 110 buttons of the main menu pages.
namespace MainMenuButtonGroupComponent {

constexpr int kButtonWidth = 140;
constexpr int kButtonHeight = 110;
constexpr int kGap = 60;

MainMenuButtonItem createButton(QWidget* parent, const QString& svgPath);
// Centres the buttons in one row across `page`.
void layoutButtons(QWidget* page, const QVector<MainMenuButtonItem>& items);
void layoutButtons(QWidget* page, std::initializer_list<MainMenuButtonItem> items);

} // namespace MainMenuButtonGroupComponent
