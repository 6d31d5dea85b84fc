#include "pages/general_slider_page_widget.h"

#include "pages/page_ids.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QPainter>
#include <QSlider>
#include <QStyleOption>
#include <QVariant>

#include <algorithm>

namespace {

// Brightness below 10 on the slider would be a black screen; the backend
// counts from 0, the slider from 10.
constexpr int kBrightnessOffset = 10;

constexpr int kTrackInsetX = 18;
constexpr int kTrackInsetY = 24;
constexpr int kTrackHeight = 12;
constexpr int kTrackRadius = 6;
constexpr int kTickGap = 6;
constexpr int kMajorTickLength = 10;
constexpr int kMinorTickLength = 6;
constexpr int kTickCount = 11;
constexpr int kHandleSize = 32;

} // namespace

GeneralSliderPageWidget::GeneralSliderPageWidget(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_mgr(textManager)
{
    setFixedSize(640, 142);
    setAttribute(Qt::WA_StyledBackground);
    setProperty("class", "v2-slider-page");
    createComponents();
    layoutComponents();
}

void GeneralSliderPageWidget::createComponents()
{
    value_label = new QLabel(this);
    value_label->setProperty("class", "v2-slider-value");
    value_label->setAlignment(Qt::AlignCenter);

    slider = new QSlider(Qt::Horizontal, this);
    slider->setProperty("class", "v2-slider-control");
    slider->setFocusPolicy(Qt::NoFocus);
    slider->setRange(min, max);
    connect(slider, &QSlider::valueChanged, this, &GeneralSliderPageWidget::onSliderValueChanged);
}

void GeneralSliderPageWidget::layoutComponents()
{
    const int w = width();
    value_label->setGeometry((w - 160) / 2, 16, 160, 26);
    // The touch handler maps window x to a value by subtracting 64, the
    // slider's left edge; the page sits at the window's left edge.
    slider->setGeometry(64, 52, w - 128, 36);
    slider->raise();
    value_label->raise();
}

QRect GeneralSliderPageWidget::trackArea() const
{
    return QRect(46, 44, width() - 92, 54);
}

void GeneralSliderPageWidget::setupSliderOptions(int type)
{
    db_mode = false;
    switch (type) {
    case SLIDER_LCD_BRIGHTNESS:
        min = kBrightnessOffset;
        max = 100;
        break;
    case SLIDER_LCD_SLEEP:
        min = 1;
        max = 30;
        break;
    case SLIDER_ENC_VOLUME:
        min = 0;
        max = 100;
        db_mode = true;
        break;
    case SLIDER_OUT_VOLUME:
    default:
        min = 0;
        max = 100;
        break;
    }
    const QSignalBlocker block(slider);
    slider->setRange(min, max);
}

int GeneralSliderPageWidget::step() const
{
    return (db_mode || slider_type == SLIDER_LCD_SLEEP) ? 1 : 5;
}

int GeneralSliderPageWidget::backendValue() const
{
    return slider_type == SLIDER_LCD_BRIGHTNESS ? value - kBrightnessOffset : value;
}

void GeneralSliderPageWidget::enterSliderMode(int type, int returnPage, int backend)
{
    slider_type = type;
    return_page = returnPage;
    setupSliderOptions(type);
    const int shown = type == SLIDER_LCD_BRIGHTNESS ? backend + kBrightnessOffset : backend;
    value = std::clamp(shown, min, max);
    if (slider->value() != value) {
        const QSignalBlocker block(slider);
        slider->setValue(value);
    }
    updateDisplay();
}

void GeneralSliderPageWidget::updateFromVm(const SliderModePageVM& vm)
{
    if (!dirty && vm == applied_vm) {
        return;
    }
    applied_vm = vm;
    enterSliderMode(vm.sliderType, vm.returnPage, vm.value);
}

void GeneralSliderPageWidget::onSliderValueChanged(int sliderValue)
{
    if (sliderValue == value) {
        return;
    }
    value = sliderValue;
    updateDisplay();
}

void GeneralSliderPageWidget::commitValue(int sliderValue)
{
    const int clamped = std::clamp(sliderValue, min, max);
    if (clamped != value) {
        value = clamped;
        const QSignalBlocker block(slider);
        slider->setValue(value);
        updateDisplay();
    }
    emit confirmed(slider_type, backendValue());
}

void GeneralSliderPageWidget::commitCurrentValue()
{
    commitValue(value);
}

void GeneralSliderPageWidget::moveBy(int delta)
{
    // Through the slider, so that the display follows as for a drag.
    slider->setValue(std::clamp(value + delta, min, max));
}

double GeneralSliderPageWidget::backendValueToDbValue(int backend)
{
    if (backend <= 50) {
        return backend - 50;
    }
    return (backend - 50) * 0.2;
}

int GeneralSliderPageWidget::dbValueToBackendValue(double db)
{
    if (db <= 0) {
        return static_cast<int>(db + 50);
    }
    return static_cast<int>(db / 0.2 + 50 + 0.5);
}

QString GeneralSliderPageWidget::dbValueToDisplayText(double db)
{
    if (db < 0) {
        return QStringLiteral("%1 dB").arg(static_cast<int>(db));
    }
    if (db == 0) {
        return QStringLiteral("0 dB");
    }
    return QStringLiteral("+%1 dB").arg(db, 0, 'f', 1);
}

QString GeneralSliderPageWidget::valueText() const
{
    if (db_mode) {
        return dbValueToDisplayText(backendValueToDbValue(value));
    }
    if (slider_type == SLIDER_LCD_SLEEP) {
        return QStringLiteral("%1%2").arg(value).arg(minute_unit);
    }
    return QStringLiteral("%1").arg(value);
}

void GeneralSliderPageWidget::updateDisplay()
{
    if (dirty) {
        onLanguageChanged();
        dirty = false;
    }
    value_label->setText(valueText());
    updateSliderVisual();
}

void GeneralSliderPageWidget::updatePageDisplay()
{
    updateDisplay();
}

void GeneralSliderPageWidget::updateSliderVisual()
{
    update();
}

void GeneralSliderPageWidget::onLanguageChanged()
{
    if (text_mgr) {
        minute_unit = text_mgr->getTextWithFallback(QStringLiteral("camera_settings.min"));
    }
}

QColor GeneralSliderPageWidget::resolveSliderColor(const QColor& color,
                                                   QPalette::ColorRole role) const
{
    return color.isValid() ? color : palette().color(role);
}

void GeneralSliderPageWidget::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    drawSliderVisual(painter);
}

void GeneralSliderPageWidget::drawSliderVisual(QPainter& painter)
{
    const QRect area = trackArea();
    const int trackWidth = area.width() - 2 * kTrackInsetX;
    if (max <= min || trackWidth < 1) {
        return;
    }
    const QRectF track(area.x() + kTrackInsetX, area.y() + kTrackInsetY, trackWidth, kTrackHeight);
    const double ratio = std::clamp(double(value - min) / double(max - min), 0.0, 1.0);
    const double passedX = track.left() + ratio * track.width();

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);

    painter.setPen(QPen(resolveSliderColor(slider_track_border_color, QPalette::Mid), 1));
    painter.setBrush(resolveSliderColor(slider_track_color, QPalette::Base));
    painter.drawRoundedRect(track, kTrackRadius, kTrackRadius);

    if (ratio > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(resolveSliderColor(slider_fill_color, QPalette::Highlight));
        painter.drawRoundedRect(
            QRectF(track.left(), track.top(), passedX - track.left(), track.height()), kTrackRadius,
            kTrackRadius);
    }

    const QColor tick = resolveSliderColor(slider_tick_color, QPalette::Mid);
    const QColor passedTick = resolveSliderColor(slider_passed_tick_color, QPalette::Highlight);
    const double tickBottom = track.top() - kTickGap;
    for (int i = 0; i < kTickCount; ++i) {
        const double x = track.left() + track.width() * i / (kTickCount - 1);
        const bool major = i % 5 == 0;
        painter.setPen(QPen(x <= passedX ? passedTick : tick, major ? 2 : 1));
        const int length = major ? kMajorTickLength : kMinorTickLength;
        painter.drawLine(QPointF(x, tickBottom), QPointF(x, tickBottom - length));
    }

    painter.setPen(QPen(resolveSliderColor(slider_handle_border_color, QPalette::Highlight), 2));
    painter.setBrush(resolveSliderColor(slider_handle_fill_color, QPalette::Light));
    painter.drawEllipse(QPointF(passedX, track.center().y()), kHandleSize / 2.0 - 1,
                        kHandleSize / 2.0 - 1);
    painter.restore();
}

int GeneralSliderPageWidget::onSwipeLeft(int)
{
    moveBy(-step());
    return -1;
}

int GeneralSliderPageWidget::onSwipeRight(int)
{
    moveBy(step());
    return -1;
}

int GeneralSliderPageWidget::onEdgeSwipeToCenter(int)
{
    return PAGE_STATUS_1;
}

int GeneralSliderPageWidget::onSwipeDown(int)
{
    return return_page;
}
