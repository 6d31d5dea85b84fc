#pragma once

#include <QSize>
#include <QString>
#include <QVector>

#include <initializer_list>

class QLabel;
class QPushButton;
class QWidget;

// A submenu card or list row; `icon` and `label` are children of `button`.
// `icon` is null on rows that have no icon.
struct SubmenuButtonItem {
    QPushButton* button = nullptr;
    QLabel* icon = nullptr;
    QLabel* label = nullptr;
};

// Builds, places and colours the 155 by 110 cards of the settings pages.
namespace SubmenuButtonGroupComponent {

constexpr int kButtonWidth = 155;
constexpr int kButtonHeight = 110;
constexpr int kGap = 10;

SubmenuButtonItem createButton(QWidget* parent, const QString& svgPath,
                               const QSize& iconSize = QSize(28, 28));
// The same, handing the three pointers out to the page's members.
SubmenuButtonItem createButton(QWidget* parent, const QString& svgPath, QPushButton** button,
                               QLabel** icon, QLabel** label);
SubmenuButtonItem createButton(QWidget* parent, const QString& svgPath, const QSize& iconSize,
                               QPushButton** button, QLabel** icon, QLabel** label);

// Centres the cards in one row across `page`.
void layoutButtons(QWidget* page, const QVector<SubmenuButtonItem>& items);
void layoutButtons(QWidget* page, std::initializer_list<SubmenuButtonItem> items);

// One word ("normal", "active", "disabled", "danger", "recording") drives
// the card's border, icon tint and label colour. `enabled` 0 or 1 also
// disables or enables the button; a negative value leaves it as it is.
void setItemState(const SubmenuButtonItem& item, const QString& state, int enabled);

} // namespace SubmenuButtonGroupComponent
