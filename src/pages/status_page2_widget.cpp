#include "pages/status_page2_widget.h"

#include "pages/page_building.h"
#include "pages/page_ids.h"
#include "pages/status_page2_format.h"
#include "ui/components/style_state.h"
#include "ui/svg_icon_label.h"
#include "ui/text_ellipsis.h"
#include "ui/text_manager.h"

#include <QFontMetrics>
#include <QLabel>
#include <QTimer>
#include <QVariant>

using namespace StatusPage2Format;

namespace {

constexpr int kRightEdge = 625;
constexpr int kSummaryFallbackWidth = 360;

// The split leaves the encoder's stream figures more room than the decoder's
// single source.
int dividerX(int pageWidth, bool encode)
{
    return pageWidth * (encode ? 35 : 28) / 100;
}

void setIconState(QLabel* icon, const QString& path, const QString& state)
{
    setSvgIconPath(icon, path);
    icon->setProperty("icon-state", state);
    refreshStyledIcon(nullptr, icon, nullptr);
}

} // namespace

StatusPage2Widget::StatusPage2Widget(UITextManager* textManager, QWidget* parent)
    : StatusPageBase(textManager, parent)
{
    createComponents();
    layoutComponents();
    initStreamSwitchTimer();
}

StatusPage2Widget::~StatusPage2Widget() { deinitStreamSwitchTimer(); }

void StatusPage2Widget::initStreamSwitchTimer()
{
    stream_switch_timer = new QTimer(this);
    stream_switch_timer->setInterval(kStreamSwitchIntervalMs);
    connect(stream_switch_timer, &QTimer::timeout, this, &StatusPage2Widget::onStreamSwitchTimeout);
    stream_switch_timer->start();
}

void StatusPage2Widget::deinitStreamSwitchTimer()
{
    if (!stream_switch_timer)
        return;
    stream_switch_timer->stop();
    delete stream_switch_timer;
    stream_switch_timer = nullptr;
}

void StatusPage2Widget::createComponents()
{
    const QRect icon24(0, 0, 24, 24);
    const QRect icon22(0, 0, 22, 22);
    center_divider = createPageLabel(this, "v2-p2-center-divider", QRect());

    input_icon = createPageIcon(this, "v2-p2-icon", ":/icons/statusp2/vi.svg", icon24);
    input_format_label = createPageLabel(this, "v2-p2-value", QRect(), QStringLiteral("1080p60"));
    io_divider = createPageLabel(this, "v2-p2-header-divider", QRect());
    output_icon = createPageIcon(this, "v2-p2-icon", ":/icons/statusp2/vo.svg", icon24);
    output_format_label = createPageLabel(this, "v2-p2-value", QRect(), QStringLiteral("1080p60"));
    loop_icon = createPageIcon(this, "v2-p2-status-icon", ":/icons/statusp2/loop.svg", icon22);
    loop_label =
        createPageLabel(this, "v2-p2-status-label-inactive", QRect(), QStringLiteral("LOOP"));
    sound_icon = createPageIcon(this, "v2-p2-status-icon", ":/icons/statusp2/sound.svg", icon22);
    sound_label =
        createPageLabel(this, "v2-p2-status-label-inactive", QRect(), QStringLiteral("MUTE"));

    stream_badge = createPageLabel(this, "v2-p2-badge-main", QRect());
    codec_label = createPageLabel(this, "v2-p2-codec-value", QRect(), QString(), Qt::AlignRight);
    format_icon = createPageIcon(this, "v2-p2-icon", ":/icons/statusp2/format.svg", icon24);
    resolution_label = createPageLabel(this, "v2-p2-res-value", QRect());
    fps_label = createPageLabel(this, "v2-p2-fps-value", QRect());
    bitrate_icon = createPageIcon(this, "v2-p2-icon", ":/icons/statusp2/bitrate.svg", icon24);
    bitrate_label = createPageLabel(this, "v2-p2-bitrate-value", QRect());

    not_started_label =
        createPageLabel(this, "v2-p2-codec-value", QRect(), QString(), Qt::AlignHCenter);
    source_icon = createPageIcon(this, "v2-p2-icon", ":/icons/statusp2/dec_source.svg", icon24);
    stream_name_label = createPageLabel(this, "v2-p2-stream-name", QRect());
    dec_status_icon = createPageIcon(this, "v2-p2-icon", ":/icons/statusbar/dec.svg", icon24);
    dec_status_label = createPageLabel(this, "v2-p2-status-label", QRect());
    dec_status_label->setProperty("state", "normal");
    summary_label = createPageLabel(this, "v2-p2-stream-name", QRect());

    showEncodeMode();
}

void StatusPage2Widget::layoutComponents()
{
    const bool encode = isEncodeMode();
    const int c = dividerX(width(), encode);
    center_divider->setGeometry(c, 15, 1, 112);
    if (encode) {
        layoutEncodeLeft(c);
        layoutEncodeRight(c);
    } else {
        layoutDecodeLeft(c);
        layoutDecodeRight(c);
    }
}

void StatusPage2Widget::layoutEncodeLeft(int c)
{
    const int r = c - 17;
    input_icon->move(16, 12);
    input_format_label->setGeometry(48, 8, r - 48, 32);
    io_divider->setGeometry(16, 44, r - 16, 1);
    output_icon->move(16, 58);
    output_format_label->setGeometry(48, 54, r - 48, 32);
    loop_icon->move(16, 99);
    loop_label->setGeometry(42, 94, 80, 32);
    sound_icon->move(134, 99);
    sound_label->setGeometry(160, 94, 80, 32);
}

void StatusPage2Widget::layoutDecodeLeft(int c)
{
    const int r = c - 17;
    output_icon->move(16, 12);
    output_format_label->setGeometry(48, 8, r - 48, 32);
    loop_icon->move(16, 52);
    loop_label->setGeometry(48, 48, r - 48, 32);
    sound_icon->move(16, 92);
    sound_label->setGeometry(48, 88, r - 48, 32);
}

void StatusPage2Widget::layoutEncodeRight(int c)
{
    stream_badge->setGeometry(c + 20, 15, 220, 28);
    codec_label->setGeometry(530, 15, 90, 28);
    format_icon->move(c + 20, 55);
    resolution_label->setGeometry(c + 52, 49, 150, 36);
    fps_label->setGeometry(c + 202, 49, 100, 36);
    bitrate_icon->move(c + 20, 93);
    bitrate_label->setGeometry(c + 52, 91, 150, 28);
}

void StatusPage2Widget::layoutDecodeRight(int c)
{
    const int x = c + 14;
    const int textX = c + 46;
    not_started_label->setGeometry(x, 51, kRightEdge - x, 40);
    source_icon->move(x, 12);
    stream_name_label->setGeometry(textX, 8, kRightEdge - textX, 32);
    dec_status_icon->move(x, 54);
    dec_status_label->setGeometry(textX, 50, kRightEdge - textX, 32);
    summary_label->setGeometry(x, 92, kRightEdge - x, 32);
}

int StatusPage2Widget::onSwipeLeft(int workmode) { return workmode == 0 ? PAGE_STATUS_3 : -1; }
int StatusPage2Widget::onSwipeRight(int) { return PAGE_STATUS_1; }

int StatusPage2Widget::onAutoSwitch(int workmode)
{
    // Decode mode leaves the audio page out of the rotation.
    if (workmode == 0)
        return PAGE_STATUS_3;
    if (workmode == 1)
        return PAGE_STATUS_1;
    return -1;
}

void StatusPage2Widget::onLanguageChanged()
{
    setKeyText(loop_label, text_manager, QStringLiteral("statusp2.label.loopout"));
    if (isEncodeMode())
        setKeyText(sound_label, text_manager, QStringLiteral("statusp2.label.mute"));
    applyStreamBadge();
    setKeyText(not_started_label, text_manager, QStringLiteral("statusp2.dec_not_start"));
    if (stored_vm.dec_name.isEmpty())
        setKeyText(stream_name_label, text_manager, QStringLiteral("statusp2.dec_not_start"));
}

void StatusPage2Widget::updateFromVm(const StatusPage2VM& vm)
{
    stored_vm = vm;
    if (takeDirty())
        onLanguageChanged();
    layoutComponents();
    applyVideoIoInfo(vm);
    if (isEncodeMode()) {
        showEncodeMode();
        applyEncodeInfo(vm);
    } else {
        showDecodeMode();
        applyDecodeInfo(vm);
    }
}

void StatusPage2Widget::onStreamSwitchTimeout()
{
    if (!isEncodeMode())
        return;
    showing_main_stream = !showing_main_stream;
    applyEncodeInfo(stored_vm);
}

void StatusPage2Widget::showEncodeMode()
{
    for (QLabel* label : {input_icon, input_format_label, io_divider, stream_badge, codec_label,
                          format_icon, resolution_label, fps_label, bitrate_icon, bitrate_label})
        label->show();
    for (QLabel* label : {not_started_label, source_icon, stream_name_label, dec_status_icon,
                          dec_status_label, summary_label})
        label->hide();
}

void StatusPage2Widget::showDecodeMode()
{
    for (QLabel* label : {input_icon, input_format_label, io_divider, stream_badge, codec_label,
                          format_icon, resolution_label, fps_label, bitrate_icon, bitrate_label})
        label->hide();
}

void StatusPage2Widget::applyVideoIoInfo(const StatusPage2VM& vm)
{
    if (isEncodeMode()) {
        QString inputText = input_format_label->text();
        if (vm.in_width < 1 || vm.in_height < 1 || vm.in_fps < 1) {
            inputText = pageText(text_manager, QStringLiteral("statusp2.no_signal"), inputText);
        } else if (!isSupportedInput(vm.in_width, vm.in_height, vm.in_fps)) {
            inputText = pageText(text_manager, QStringLiteral("statusp2.not_supported"), inputText);
        } else {
            inputText = videoFormatText(vm.in_width, vm.in_height, vm.in_fps, vm.in_fpsdiv);
        }
        input_format_label->setText(inputText);
        // The loop output passes the input through unchanged.
        output_format_label->setText(vm.loop_out_on ? inputText : vm.out_format);
    } else {
        output_format_label->setText(vm.out_format);
    }
    applyLoopAndSound(vm);
}

void StatusPage2Widget::applyLoopAndSound(const StatusPage2VM& vm)
{
    const QString green = QStringLiteral("active-green");
    const QString red = QStringLiteral("active-red");

    loop_label->setProperty("class", "v2-p2-status-label");
    setStyleProperty(loop_label, "state", vm.loop_out_on ? green : QStringLiteral("normal"));
    loop_icon->setProperty("icon-state", vm.loop_out_on ? green : QStringLiteral("disabled"));
    refreshStyledIcon(nullptr, loop_icon, nullptr);

    sound_label->setProperty("class", "v2-p2-status-label");
    const bool encode = isEncodeMode();
    if (encode) {
        setKeyText(sound_label, text_manager, QStringLiteral("statusp2.label.mute"));
        // The word lights up red when the output is muted.
        setStyleProperty(sound_label, "state", vm.audio_out_on ? QStringLiteral("normal") : red);
    } else {
        sound_label->setText(QString::number(vm.ao_volume));
        setStyleProperty(sound_label, "state", vm.ao_volume < 1 ? red : green);
    }

    if (!encode && vm.ao_volume >= 1)
        setIconState(sound_icon, QStringLiteral(":/icons/statusp2/sound.svg"), green);
    else
        setIconState(sound_icon, QStringLiteral(":/icons/statusp2/mute.svg"),
                     encode && vm.audio_out_on ? QStringLiteral("disabled") : red);
}

void StatusPage2Widget::applyStreamBadge()
{
    if (showing_main_stream) {
        setKeyText(stream_badge, text_manager, QStringLiteral("statusp2.badge.mainstream"));
        setStyleProperty(stream_badge, "class", QStringLiteral("v2-p2-badge-main"));
    } else {
        setKeyText(stream_badge, text_manager, QStringLiteral("statusp2.badge.substream"));
        setStyleProperty(stream_badge, "class", QStringLiteral("v2-p2-badge-sub"));
    }
}

void StatusPage2Widget::applyEncodeInfo(const StatusPage2VM& vm)
{
    const bool main = showing_main_stream;
    const int codec = main ? vm.main_codec : vm.sub_codec;
    const int width = main ? vm.main_width : vm.sub_width;
    const int height = main ? vm.main_height : vm.sub_height;
    const int framerate = main ? vm.main_framerate : vm.sub_framerate;
    const int bitrate = main ? vm.main_bitrate : vm.sub_bitrate;

    applyStreamBadge();
    codec_label->setText(encoderCodecText(codec));
    resolution_label->setText(QStringLiteral("%1x%2").arg(width).arg(height));
    fps_label->setText(QStringLiteral("@ %1FPS").arg(framerate));
    // With NDI on, the model carries the NDI bit rate preset as a percentage.
    bitrate_label->setText(vm.ndi_on ? QStringLiteral("%1 %").arg(bitrate)
                                     : QStringLiteral("%1 kbps").arg(bitrate));
    const bool hasBitrate = codec != 2; // MJPEG has no bit rate setting
    bitrate_icon->setVisible(hasBitrate);
    bitrate_label->setVisible(hasBitrate);
}

void StatusPage2Widget::applyDecodeInfo(const StatusPage2VM& vm)
{
    const bool started = vm.dec_status != 0;
    not_started_label->setVisible(!started);
    for (QLabel* label :
         {source_icon, stream_name_label, dec_status_icon, dec_status_label, summary_label})
        label->setVisible(started);
    if (!started) {
        setKeyText(not_started_label, text_manager, QStringLiteral("statusp2.dec_not_start"));
        return;
    }

    if (vm.dec_name.isEmpty())
        setKeyText(stream_name_label, text_manager, QStringLiteral("statusp2.dec_not_start"));
    else
        stream_name_label->setText(buildEllipsisName(vm.dec_name, 1));

    if (text_manager)
        dec_status_label->setText(text_manager->getTextWithFallback(
            QStringLiteral("pull_status.status_%1").arg(vm.dec_status)));
    applyDecoderStatusStyle(vm.dec_status);

    const int width = summary_label->width() > 0 ? summary_label->width() : kSummaryFallbackWidth;
    summary_label->setText(QFontMetrics(summary_label->font())
                               .elidedText(decoderSummaryText(vm), Qt::ElideRight, width));
}

void StatusPage2Widget::applyDecoderStatusStyle(int status)
{
    setStyleProperty(dec_status_label, "state", decoderStatusState(status));
}
