#include "ui/components/nav_dots_component.h"

#include "model/view_models/shell_view_models.h"
#include "ui/components/style_state.h"

#include <QLabel>
#include <QVariant>

namespace {

constexpr int kDotSize = 8;
constexpr int kActiveDotWidth = 16;
constexpr int kDotGap = 6;

} // namespace

NavDotsComponent::NavDotsComponent(QWidget* window) : QWidget(window)
{
    setProperty("class", "navdots");
    setGeometry(0, 156, 640, 12);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    for (int i = 0; i < kMaxDots; ++i) {
        auto* dot = new QLabel(this);
        dot->setProperty("class", "navdot");
        dot->setFixedSize(kDotSize, kDotSize);
        dot->hide();
        dot_labels.append(dot);
    }
    hide();
}

void NavDotsComponent::updateState(const NavDotsState& state)
{
    if (!state.visible || state.count < 2) {
        hide();
        return;
    }
    const int n = qMin(state.count, kMaxDots);
    int x = (width() - ((n - 1) * kDotGap + (n + 1) * kDotSize)) / 2;
    const int y = (height() - kDotSize) / 2;
    for (int i = 0; i < dot_labels.size(); ++i) {
        QLabel* dot = dot_labels.at(i);
        if (i >= n) {
            dot->hide();
            continue;
        }
        const bool current = i == state.current;
        const int dotWidth = current ? kActiveDotWidth : kDotSize;
        dot->setFixedSize(dotWidth, kDotSize);
        setStyleProperty(dot, "class", current ? "navdot-active" : "navdot");
        dot->move(x, y);
        dot->show();
        x += dotWidth + kDotGap;
    }
    show();
}
