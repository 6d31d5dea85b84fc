#pragma once

#include <QIcon>
#include <QObject>

#include <optional>

class QPushButton;
class QWidget;

// The left and right arrows of the multi-page groups, two buttons of the
// main window shared by all pages. At the ends of a group the arrows stay
// tappable; an "out" icon is the only sign that there is no further page.
class SubmenuArrowsComponent : public QObject {
    Q_OBJECT

public:
    // The buttons become children of `window` and start hidden.
    explicit SubmenuArrowsComponent(QWidget* window);

    void updateState(bool visible, bool atFirst, bool atLast);
    void hideArrows();

    QPushButton* leftButton() const { return left_button; }
    QPushButton* rightButton() const { return right_button; }

signals:
    void leftClicked();
    void rightClicked();

private:
    QPushButton* left_button = nullptr;
    QPushButton* right_button = nullptr;
    QIcon left_icon;
    QIcon left_out_icon;
    QIcon right_icon;
    QIcon right_out_icon;
    // What the buttons last showed; unknown until the first update so that it
    // always sets the icons. Re-setting an unchanged icon is skipped because
    // it re-renders the SVG.
    std::optional<bool> shown_at_first;
    std::optional<bool> shown_at_last;
};
