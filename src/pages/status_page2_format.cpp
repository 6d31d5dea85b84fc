#include "pages/status_page2_format.h"

#include "model/view_models/status_view_models.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace StatusPage2Format {

namespace {

struct SupportedInput {
    int width;
    int height;
    int fps;
};

constexpr std::array<SupportedInput, 21> kQuorrelProSupportedInputs{{
    {3840, 2160, 60},  {3840, 2160, 50},  {3840, 2160, 30}, {3840, 2160, 25}, {3840, 2160, 24},
    {1920, 1080, 120}, {1920, 1080, 100}, {1920, 1080, 60}, {1920, 1080, 50}, {1920, 1080, 30},
    {1920, 1080, 25},  {1920, 1080, 24},  {1920, 540, 60},  {1920, 540, 50},  {1280, 720, 120},
    {1280, 720, 100},  {1280, 720, 60},   {1280, 720, 50},  {1280, 720, 30},  {1280, 720, 25},
    {1280, 720, 24},
}};

} // namespace

bool isSupportedInput(int width, int height, int fps)
{
    return std::any_of(kQuorrelProSupportedInputs.begin(), kQuorrelProSupportedInputs.end(),
                       [&](const SupportedInput& in) {
                           return in.width == width && in.height == height && in.fps == fps;
                       });
}

QString frameRateText(int fps, int fpsdiv)
{
    if (fpsdiv >= 1) {
        switch (fps) {
        case 120:
            return QStringLiteral("119.88");
        case 60:
            return QStringLiteral("59.94");
        case 30:
            return QStringLiteral("29.97");
        case 24:
            return QStringLiteral("23.976");
        default:
            break;
        }
    }
    return QString::number(fps);
}

QString videoFormatText(int width, int height, int fps, int fpsdiv)
{
    const QString rate = frameRateText(fps, fpsdiv);
    if (width == 3840 && height == 2160)
        return QStringLiteral("2160p%1").arg(rate);
    if (width == 1920 && height == 1080)
        return QStringLiteral("1080p%1").arg(rate);
    if (width == 1920 && height == 540)
        return QStringLiteral("1080i%1").arg(rate);
    if (width == 1280 && height == 720)
        return QStringLiteral("720p%1").arg(rate);
    return QStringLiteral("%1x%2@%3").arg(width).arg(height).arg(rate);
}

QString encoderCodecText(int codec)
{
    switch (codec) {
    case 0:
        return QStringLiteral("H.264");
    case 1:
        return QStringLiteral("H.265");
    default:
        return QStringLiteral("MJPEG");
    }
}

QString decoderStatusState(int status)
{
    switch (status) {
    case 1:
    case 3:
    case 5:
    case 8:
    case 9:
    case 10:
        return QStringLiteral("active-green");
    case 2:
    case 4:
    case 6:
        return QStringLiteral("active-yellow");
    case 0:
    case 11:
    case 12:
        return QStringLiteral("active-red");
    default:
        return QStringLiteral("normal");
    }
}

QString compactSummaryField(const QString& field)
{
    const QString trimmed = field.trimmed();
    if (trimmed.isEmpty() || trimmed == QLatin1String("0") ||
        trimmed.compare(QLatin1String("UNKNOWN"), Qt::CaseInsensitive) == 0)
        return QString();
    return trimmed;
}

QString bandwidthText(int kbps)
{
    if (kbps <= 999)
        return QStringLiteral("%1kbps").arg(kbps);
    if (kbps % 1000 == 0)
        return QStringLiteral("%1Mbps").arg(kbps / 1000);
    return QStringLiteral("%1Mbps").arg(kbps / 1000.0, 0, 'f', 1);
}

QString decoderSummaryText(const StatusPage2VM& vm)
{
    QStringList fields;
    for (const QString& format : {vm.dec_video_format, vm.dec_audio_format}) {
        const QString field = compactSummaryField(format);
        if (!field.isEmpty())
            fields << field;
    }
    if (vm.dec_width >= 1 && vm.dec_height >= 1 && vm.dec_framerate > 0) {
        QString rate = QString::number(vm.dec_framerate, 'f', 3);
        while (rate.endsWith(QLatin1Char('0')))
            rate.chop(1);
        if (rate.endsWith(QLatin1Char('.')))
            rate.chop(1);
        fields << QStringLiteral("%1x%2@%3").arg(vm.dec_width).arg(vm.dec_height).arg(rate);
    }
    if (vm.dec_bandwidth >= 1)
        fields << bandwidthText(vm.dec_bandwidth);
    return fields.join(QStringLiteral("    "));
}

} // namespace StatusPage2Format
