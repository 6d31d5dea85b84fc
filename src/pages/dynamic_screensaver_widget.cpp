#include "pages/dynamic_screensaver_widget.h"

#include "pages/page_widget_helpers.h"
#include "ui/text_manager.h"

#include <QFrame>
#include <QLabel>
#include <QTimer>
#include <QVariant>

#include <algorithm>

namespace {

constexpr QPoint kStartPosition{40, 18};
constexpr QPoint kStartVelocity{4, 4};
constexpr int kCardWidth = 280;
constexpr int kCardHeight = 96;

// The card keeps a margin from every edge: it moves within 24..W-304 and
// 12..H-108, reversing at either end.
constexpr int kMinX = 24;
constexpr int kRightMargin = 304;
constexpr int kMinY = 12;
constexpr int kBottomMargin = 108;

// One axis of the bounce: step, and when the step leaves [low, high) clamp it
// back into [low, high] and turn round.
void bounceAxis(int& pos, int& speed, int low, int high)
{
    int next = pos + speed;
    if (next >= high || next < low + 1) {
        next = std::max(low, std::min(high, next));
        speed = -speed;
    }
    pos = next;
}

} // namespace

DynamicScreensaverWidget::DynamicScreensaverWidget(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_manager(textManager)
{
    setAttribute(Qt::WA_StyledBackground);
    setProperty("class", "dynamic-screensaver");
    setGeometry(0, 0, 640, 172);
    animation_timer = new QTimer(this);
    animation_timer->setInterval(kTickMs);
    connect(animation_timer, &QTimer::timeout, this, &DynamicScreensaverWidget::onAnimationTick);
    createComponents();
    layoutEdges();
    hide();
}

void DynamicScreensaverWidget::createComponents()
{
    top_edge = makeStyled<QFrame>(this, "dynamic-screensaver-edge", QRect());
    bottom_edge = makeStyled<QFrame>(this, "dynamic-screensaver-edge", QRect());

    card = makeStyled<QFrame>(this, "dynamic-screensaver-card",
                              QRect(card_pos, QSize(kCardWidth, kCardHeight)));
    date_label = makeStyled<QLabel>(card, "dynamic-screensaver-date", QRect(20, 16, 126, 22));
    time_label = makeStyled<QLabel>(card, "dynamic-screensaver-time", QRect(18, 32, 132, 40));
    makeStyled<QFrame>(card, "dynamic-screensaver-divider", QRect(158, 16, 1, 64));
    auto* badge =
        makeStyled<QFrame>(card, "dynamic-screensaver-mode-badge", QRect(170, 32, 94, 32));
    makeStyled<QFrame>(badge, "dynamic-screensaver-mode-accent", QRect(8, 8, 4, 16));
    mode_text = makeStyled<QLabel>(badge, "dynamic-screensaver-mode-text", QRect(18, 0, 70, 32));

    date_label->setText(QString::fromLatin1(kUnknownDateText));
    time_label->setText(QString::fromLatin1(kUnknownTimeText));
}

void DynamicScreensaverWidget::layoutEdges()
{
    top_edge->setGeometry(0, 0, width(), 1);
    bottom_edge->setGeometry(0, height() - 1, width(), 1);
}

void DynamicScreensaverWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutEdges();
}

void DynamicScreensaverWidget::start()
{
    card_pos = kStartPosition;
    velocity = kStartVelocity;
    card->move(card_pos);
    animation_timer->start(kTickMs);
    show();
    raise();
}

void DynamicScreensaverWidget::stop()
{
    animation_timer->stop();
    hide();
}

void DynamicScreensaverWidget::onAnimationTick()
{
    bounceAxis(card_pos.rx(), velocity.rx(), kMinX, width() - kRightMargin);
    bounceAxis(card_pos.ry(), velocity.ry(), kMinY, height() - kBottomMargin);
    card->move(card_pos);
}

void DynamicScreensaverWidget::updateFromVm(const DynamicScreensaverVM& vm)
{
    date_label->setText(orPlaceholder(vm.date_text, kUnknownDateText));
    time_label->setText(orPlaceholder(vm.time_text, kUnknownTimeText));
    updateModeText(vm);
}

void DynamicScreensaverWidget::updateModeText(const DynamicScreensaverVM& vm)
{
    if (!text_manager)
        return;
    QString key;
    if (vm.standby)
        key = QStringLiteral("standby_page.standby");
    else if (vm.work_mode == 1)
        key = QStringLiteral("statusbar.workmode.decode");
    else
        key = QStringLiteral("statusbar.workmode.encode");
    mode_text->setText(text_manager->getTextWithFallback(key));
}
