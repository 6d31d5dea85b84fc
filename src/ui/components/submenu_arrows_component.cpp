#include "ui/components/submenu_arrows_component.h"

#include <QPushButton>
#include <QVariant>

namespace {

QPushButton* createArrowButton(QWidget* window, int x)
{
    auto* button = new QPushButton(window);
    button->setProperty("class", "v2-edit-arrow-btn");
    button->setIconSize(QSize(48, 48));
    button->setGeometry(x, 49, 80, 80);
    button->hide();
    return button;
}

} // namespace

SubmenuArrowsComponent::SubmenuArrowsComponent(QWidget* window)
    : QObject(window),
      left_icon(QStringLiteral(":/icons/general/left.svg")),
      left_out_icon(QStringLiteral(":/icons/general/left_out.svg")),
      right_icon(QStringLiteral(":/icons/general/right.svg")),
      right_out_icon(QStringLiteral(":/icons/general/right_out.svg"))
{
    left_button = createArrowButton(window, 8);
    right_button = createArrowButton(window, 552);
    connect(left_button, &QPushButton::clicked, this, &SubmenuArrowsComponent::leftClicked);
    connect(right_button, &QPushButton::clicked, this, &SubmenuArrowsComponent::rightClicked);
}

void SubmenuArrowsComponent::updateState(bool visible, bool atFirst, bool atLast)
{
    if (!visible || !left_button || !right_button) {
        hideArrows();
        return;
    }
    if (shown_at_first != atFirst) {
        left_button->setIcon(atFirst ? left_out_icon : left_icon);
        shown_at_first = atFirst;
    }
    if (shown_at_last != atLast) {
        right_button->setIcon(atLast ? right_out_icon : right_icon);
        shown_at_last = atLast;
    }
    for (QPushButton* button : {left_button, right_button}) {
        button->setEnabled(true);
        button->show();
        button->raise();
    }
}

void SubmenuArrowsComponent::hideArrows()
{
    if (left_button)
        left_button->hide();
    if (right_button)
        right_button->hide();
    shown_at_first.reset();
    shown_at_last.reset();
}
