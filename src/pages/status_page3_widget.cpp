#include "pages/status_page3_widget.h"

#include "model/view_models/status_view_models.h"
#include "pages/page_building.h"
#include "pages/page_ids.h"
#include "ui/components/style_state.h"
#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QProgressBar>
#include <QVariant>

namespace {

constexpr int kHdmiSource = 2;

QString sourceKey(int aiType)
{
    switch (aiType) {
    case 0:
        return QStringLiteral("audio_source.line");
    case 1:
        return QStringLiteral("audio_source.mic");
    case 2:
        return QStringLiteral("audio_source.hdmi");
    case 3:
        return QStringLiteral("audio_source.usb");
    case 4:
        return QStringLiteral("audio_source.bt");
    default:
        return QString();
    }
}

QString codecText(int codec)
{
    switch (codec) {
    case 1:
        return QStringLiteral("MP3");
    case 2:
        return QStringLiteral("G.711A");
    case 3:
        return QStringLiteral("PCM");
    default:
        return QStringLiteral("AAC");
    }
}

QString sampleRateIndexText(int index)
{
    switch (index) {
    case 0:
        return QStringLiteral("8kHz");
    case 1:
        return QStringLiteral("16kHz");
    case 2:
        return QStringLiteral("32kHz");
    case 3:
        return QStringLiteral("44.1kHz");
    case 5:
        return QStringLiteral("88.2kHz");
    case 6:
        return QStringLiteral("96kHz");
    case 7:
        return QStringLiteral("176.4kHz");
    case 8:
        return QStringLiteral("192kHz");
    default:
        return QStringLiteral("48kHz");
    }
}

QString bitrateText(int index)
{
    switch (index) {
    case 0:
        return QStringLiteral("32 kbps");
    case 1:
        return QStringLiteral("48 kbps");
    case 2:
        return QStringLiteral("64 kbps");
    case 3:
        return QStringLiteral("96 kbps");
    case 5:
        return QStringLiteral("192 kbps");
    case 6:
        return QStringLiteral("256 kbps");
    default:
        return QStringLiteral("128 kbps");
    }
}

} // namespace

StatusPage3Widget::StatusPage3Widget(UITextManager* textManager, QWidget* parent)
    : StatusPageBase(textManager, parent)
{
    createComponents();
    layoutComponents();
}

void StatusPage3Widget::createComponents()
{
    audio_label = createPageLabel(this, "v2-p3-audio-label", QRect(), QStringLiteral("AUDIO"));
    on_off_label =
        createPageLabel(this, "v2-p3-status-on", QRect(), QStringLiteral("ON"), Qt::AlignRight);
    volume_icon =
        createPageIcon(this, "v2-p3-icon", ":/icons/statusp2/sound.svg", QRect(20, 60, 24, 24));
    volume_label = createPageLabel(this, "v2-p3-volume-value", QRect(), QStringLiteral("100%"));
    volume_bar = createPageBar(this, "v2-p3-volume-bar", QRect(), 50);
    center_divider = createPageLabel(this, "v2-p3-center-divider", QRect());

    source_icon = createPageIcon(this, "v2-p3-icon", ":/icons/statusp3/audio_source.svg",
                                 QRect(280, 14, 24, 24));
    source_label = createPageLabel(this, "v2-p3-source-value", QRect(), QStringLiteral("HDMI"));
    first_row_divider = createPageLabel(this, "v2-p3-row-divider", QRect());
    codec_icon =
        createPageIcon(this, "v2-p3-icon", ":/icons/statusp2/acodec.svg", QRect(280, 57, 24, 24));
    codec_label = createPageLabel(this, "v2-p3-codec-value", QRect(), QStringLiteral("AAC"));
    samplerate_label =
        createPageLabel(this, "v2-p3-samplerate-value", QRect(), QStringLiteral("48kHz"));
    samplerate_icon = createPageIcon(this, "v2-p3-icon", ":/icons/statusp3/sample_rate.svg",
                                     QRect(592, 57, 24, 24));
    second_row_divider = createPageLabel(this, "v2-p3-row-divider", QRect());
    bitrate_icon =
        createPageIcon(this, "v2-p3-icon", ":/icons/statusp2/bitrate.svg", QRect(280, 98, 24, 24));
    bitrate_label =
        createPageLabel(this, "v2-p3-bitrate-value", QRect(), QStringLiteral("128 kbps"));
}

void StatusPage3Widget::layoutComponents()
{
    audio_label->setGeometry(20, 12, 100, 32);
    on_off_label->setGeometry(176, 12, 60, 32);
    volume_label->setGeometry(166, 56, 70, 32);
    volume_bar->setGeometry(20, 96, 216, 16);
    center_divider->setGeometry(width() * 4 / 10, 15, 1, 112);
    source_label->setGeometry(496, 8, 120, 36);
    first_row_divider->setGeometry(280, 48, 336, 1);
    codec_label->setGeometry(312, 53, 80, 32);
    samplerate_label->setGeometry(504, 53, 80, 32);
    second_row_divider->setGeometry(280, 89, 336, 1);
    bitrate_label->setGeometry(496, 94, 120, 32);
}

int StatusPage3Widget::onSwipeRight(int) { return PAGE_STATUS_2; }
int StatusPage3Widget::onAutoSwitch(int workmode) { return workmode == 0 ? PAGE_STATUS_1 : -1; }

int StatusPage3Widget::backendValueToDbValue(int value)
{
    if (value <= 50)
        return value - 50;
    return (value - 50) / 5;
}

QString StatusPage3Widget::dbValueToDisplayText(int db)
{
    if (db < 0)
        return QStringLiteral("%1dB").arg(db);
    if (db == 0)
        return QStringLiteral("0dB");
    return QStringLiteral("+%1dB").arg(db);
}

void StatusPage3Widget::onLanguageChanged()
{
    setKeyText(audio_label, text_manager, QStringLiteral("statusp3.label.audio"));
}

void StatusPage3Widget::updateFromVm(const StatusPage3VM& vm)
{
    if (takeDirty())
        onLanguageChanged();
    applyAudioStatus(vm);
    applyAudioDetails(vm);
}

void StatusPage3Widget::applyAudioStatus(const StatusPage3VM& vm)
{
    setKeyText(on_off_label, text_manager,
               vm.audio_on ? QStringLiteral("statusp3.status.on")
                           : QStringLiteral("statusp3.status.off"));
    setStyleProperty(on_off_label, "class",
                     vm.audio_on ? QStringLiteral("v2-p3-status-on")
                                 : QStringLiteral("v2-p3-status-off"));

    const bool silent = vm.volume < 1 || !vm.audio_on;
    setSvgIconPath(volume_icon, silent ? QStringLiteral(":/icons/statusp2/mute.svg")
                                       : QStringLiteral(":/icons/statusp2/sound.svg"));
    volume_icon->setProperty("icon-state", "normal");
    refreshStyledIcon(nullptr, volume_icon, nullptr);

    volume_label->setText(dbValueToDisplayText(backendValueToDbValue(vm.volume)));
    volume_bar->setRange(0, 100);
    volume_bar->setValue(vm.volume);
    setStyleProperty(volume_bar, "state",
                     vm.audio_on ? QStringLiteral("enabled") : QStringLiteral("disabled"));

    // The volume of an HDMI source is not adjustable here.
    const bool showVolume = vm.ai_type != kHdmiSource;
    volume_icon->setVisible(showVolume);
    volume_label->setVisible(showVolume);
    volume_bar->setVisible(showVolume);
}

void StatusPage3Widget::applyAudioDetails(const StatusPage3VM& vm)
{
    const QString key = sourceKey(vm.ai_type);
    if (key.isEmpty())
        source_label->setText(QStringLiteral("Unknown"));
    else
        setKeyText(source_label, text_manager, key);
    codec_label->setText(codecText(vm.codec));
    const QString sampleRate = sampleRateText(vm);
    if (!sampleRate.isNull())
        samplerate_label->setText(sampleRate);
    bitrate_label->setText(bitrateText(vm.bitrate));
}

QString StatusPage3Widget::sampleRateText(const StatusPage3VM& vm) const
{
    // An HDMI source reports what actually arrives, which may be nothing.
    if (vm.ai_type == kHdmiSource && vm.input_samplerate < 1) {
        if (!text_manager)
            return QString();
        return text_manager->getTextWithFallback(vm.input_samplerate == 0
                                                     ? QStringLiteral("statusp3.no_audio")
                                                     : QStringLiteral("statusp3.audio_not_supported"));
    }
    return sampleRateIndexText(vm.sample_rate);
}
