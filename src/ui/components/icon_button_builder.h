#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

class QLabel;
class QPushButton;
class QWidget;

// How a menu button and its centred icon and caption look and sit.
struct IconButtonLook {
    const char* buttonClass;
    QSize buttonSize;
    const char* iconClass;
    QSize iconSize;
    QPoint iconPos;
    const char* labelClass;
    QRect labelRect;
};

struct IconButtonParts {
    QPushButton* button = nullptr;
    QLabel* icon = nullptr;
    QLabel* label = nullptr;
};

// A fixed-size button with a tintable icon (`icon-state` "normal") and a
// centred, empty caption, both children of the button.
IconButtonParts createIconButton(QWidget* parent, const QString& svgPath, const IconButtonLook& look);

// Centres `buttons` in one row across `page`, `gap` pixels apart, at
// y (page height - 122) / 2.
void centreButtonRow(QWidget* page, const QVector<QPushButton*>& buttons, int buttonWidth, int gap);
