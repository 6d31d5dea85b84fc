#pragma once

#include "ui/components/submenu_button_group_component.h"

#include <QString>

class QLabel;
class QScrollArea;
class QWidget;

// The horizontal list of the shortcut pages: a 540 by 110 scroll area whose
// content holds 160 by 100 rows, 170 pixels apart, or a hint when it is
// empty. The list moves by whole rows, one per swipe, without animation.
namespace ShortcutListComponent {

constexpr int kRowWidth = 160;
constexpr int kRowHeight = 100;
constexpr int kScrollStep = 170;

// The caller sizes `*content` to its rows: n rows are (n-1)·170 + 160 wide.
QScrollArea* createScrollArea(QWidget* parent, QWidget** content);
QLabel* createEmptyHint(QWidget* parent);
void layoutList(QWidget* page, QScrollArea* area, QLabel* hint);
void setEmptyState(QScrollArea* area, QLabel* hint, const QString& text, bool empty);

// A row at position `index` of `content`: `label` holds the name, and the
// status line is the button's child of class "v2-shortcut-status". Returns
// an empty item if `content` is null.
SubmenuButtonItem createStatusItem(QWidget* content, int index, const QString& name,
                                   const QString& statusText, const QString& statusState,
                                   const QString& btnState);

bool canScrollLeft(QScrollArea* area);
bool canScrollRight(QScrollArea* area);
// Each moves one row and answers whether the list can still move that way.
bool scrollLeft(QScrollArea* area);
bool scrollRight(QScrollArea* area);

} // namespace ShortcutListComponent
