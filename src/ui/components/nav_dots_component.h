#pragma once

#include <QList>
#include <QWidget>

class QLabel;
struct NavDotsState;

// The row of page dots under the content, one for each page of the group on
// screen; the current page's dot is a wider pill. Touches pass through.
class NavDotsComponent : public QWidget {
    Q_OBJECT

public:
    static constexpr int kMaxDots = 6;

    explicit NavDotsComponent(QWidget* window);

    void updateState(const NavDotsState& state);

    const QList<QLabel*>& dots() const { return dot_labels; }

private:
    QList<QLabel*> dot_labels;
};
