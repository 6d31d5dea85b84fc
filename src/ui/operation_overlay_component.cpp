#include "ui/operation_overlay_component.h"

#include "ui/components/style_state.h"
#include "ui/svg_icon_label.h"

#include <QFontMetrics>
#include <QLabel>
#include <QTimer>

#include <algorithm>
#include <unordered_map>

namespace {

constexpr int kCardX = 240;
constexpr int kCardWidth = 160;
constexpr int kIconSize = 24;
constexpr int kIconMinX = 18;
constexpr int kIconToText = 34;
constexpr int kTextHeight = 28;
// Room left and right of the text: the icon, the gaps, the rounded ends.
constexpr int kTextMargin = 102;
constexpr int kCardPadding = 70;
constexpr int kCardMinWidth = 120;
constexpr int kCardEdgeMargin = 32;

const std::unordered_map<int, const char*>& specialStatusKeys()
{
    static const std::unordered_map<int, const char*> keys = {
        {5, "point_info.unlock"},
        {4, "point_info.lock"},
        {3, "point_info.executing"},
        {2, "point_info.rebooting"},
        {1, "point_info.need_restart"},
        {-1, "point_info.too_fast"},
        {-2, "point_info.invalid_param"},
        {-4, "point_info.no_signal"},
        {-5, "point_info.disk_full"},
        {-6, "point_info.disk_invalid"},
        {-7, "point_info.busy"},
        {-8, "point_info.duplicate"},
        {-9, "point_info.stream_limit"},
        {-10, "point_info.stream_start_failed"},
        {-11, "point_info.stream_close_failed"},
        {-12, "point_info.stream_type_unsupported"},
        {-101, "point_info.not_ready"},
        {-102, "point_info.param_incomplete"},
        {-103, "point_info.product_not_support"},
        {-104, "point_info.switch_control_failed"},
        {-105, "point_info.not_open"},
        {-106, "point_info.verify_invalid"},
        {-107, "point_info.param_out_of_range"},
        {-108, "point_info.function_not_support"},
        {-109, "point_info.file_upload_failed"},
        {-110, "point_info.file_duplicate"},
        {-111, "point_info.space_not_enough"},
        {-112, "point_info.retry_later"},
        {-113, "point_info.signal_missing"},
        {-201, "point_info.stream_need_close"},
        {-202, "point_info.stream_index_invalid"},
        {-203, "point_info.stream_switch_too_fast"},
        {-301, "point_info.network_no_wifi_module"},
        {-401, "point_info.system_workmode_too_fast"},
        {-402, "point_info.system_workmode_already_switched"},
        {-403, "point_info.system_switching"},
        {-501, "point_info.audio_no_valid_source"},
        {-502, "point_info.audio_record_on"},
        {-601, "point_info.storage_snap_format_error"},
        {-602, "point_info.storage_snap_too_fast"},
        {-603, "point_info.storage_nas_busy"},
        {-604, "point_info.storage_info_max"},
        {-605, "point_info.nas_already_opened"},
        {-606, "point_info.storage_opened_cannot_modify"},
        {-607, "point_info.storage_nas_closed"},
        {-608, "point_info.storage_format_failed"},
        {-609, "point_info.storage_busy"},
        {-610, "point_info.storage_speed_test_failed"},
        {-611, "point_info.storage_recording_busy"},
        {-701, "point_info.record_task_started"},
        {-702, "point_info.record_index_invalid"},
        {-703, "point_info.record_name_exists"},
        {-704, "point_info.record_task_started_cannot_delete"},
        {-705, "point_info.record_start_failed"},
        {-706, "point_info.record_task_limit"},
        {-707, "point_info.recording_cannot_modify"},
        {-708, "point_info.record_enable_too_fast"},
        {-709, "point_info.record_disk_limit_4gb"},
        {-710, "point_info.record_codec_unsupported"},
        {-801, "point_info.video_no_signal_source"},
        {-901, "point_info.streamplay_failed"},
        {-902, "point_info.streamplay_start_failed"},
        {-903, "point_info.streamplay_start_push_first"},
        {-1001, "point_info.mediaplayer_state_invalid"},
        {-1002, "point_info.mediaplayer_type_unsupported"},
    };
    return keys;
}

} // namespace

OperationOverlayComponent::OperationOverlayComponent(QWidget* parent) : QWidget(parent)
{
    setProperty("class", "v2-operation-overlay");
    setAttribute(Qt::WA_TransparentForMouseEvents, false);
    setAttribute(Qt::WA_StyledBackground, true);
    setGeometry(kX, kY, kWidth, kHeight);

    card = new QWidget(this);
    card->setProperty("class", "v2-operation-card");
    card->setAttribute(Qt::WA_StyledBackground, true);
    card->setGeometry(kCardX, 0, kCardWidth, kHeight);

    icon = createSvgIconLabel(card, kLoadingIcon, QSize(kIconSize, kIconSize), "v2-operation-icon");
    icon->move(kIconMinX, (kHeight - kIconSize) / 2);
    icon->setProperty("state", "loading");

    text = new QLabel(card);
    text->setProperty("class", "v2-operation-text");
    text->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    text->setGeometry(52, 6, 90, kTextHeight);
    text->setFixedHeight(kTextHeight);

    auto_hide_timer = new QTimer(this);
    auto_hide_timer->setSingleShot(true);
    connect(auto_hide_timer, &QTimer::timeout, this, &OperationOverlayComponent::autoHideTimeout);

    hide();
}

bool OperationOverlayComponent::isActive() const
{
    return isVisible() && current_state != OPERATION_IDLE;
}

void OperationOverlayComponent::startAutoHide(int ms)
{
    if (ms > 0)
        auto_hide_timer->start(ms);
}

void OperationOverlayComponent::stopAutoHide()
{
    auto_hide_timer->stop();
}

bool OperationOverlayComponent::isAutoHidePending() const
{
    return auto_hide_timer->isActive();
}

void OperationOverlayComponent::hideOverlay()
{
    stopAutoHide();
    hide();
    current_state = OPERATION_IDLE;
}

void OperationOverlayComponent::updateLayoutForText(const QString& message)
{
    const int overlayWidth = width();
    const int overlayHeight = height();
    const QFontMetrics metrics(text->font());
    const QString elided =
        metrics.elidedText(message, Qt::ElideRight, std::max(overlayWidth - kTextMargin, 1));
    const int textWidth = std::max(metrics.horizontalAdvance(elided), 1);
    const int cardWidth =
        std::max(std::min(textWidth + kCardPadding, overlayWidth - kCardEdgeMargin), kCardMinWidth);

    card->setGeometry((overlayWidth - cardWidth) / 2, 0, cardWidth, overlayHeight);
    const int iconX = std::max((cardWidth - (textWidth + kIconToText)) / 2, kIconMinX);
    icon->setGeometry(iconX, (overlayHeight - 1 - (kIconSize - 1)) / 2, kIconSize, kIconSize);
    text->setGeometry(iconX + kIconToText, (overlayHeight - 1 - (kTextHeight - 1)) / 2, textWidth,
                      kTextHeight);
    text->setText(elided);
}

void OperationOverlayComponent::setVisualState(OperationStateType state, const QString& iconPath,
                                               const QString& stateName)
{
    current_state = state;
    setSvgIconPath(icon, iconPath);
    icon->setProperty("state", stateName);
    text->setProperty("state", stateName);
    refreshStyledIcon(nullptr, icon, text);
}

void OperationOverlayComponent::showCard(OperationStateType state, const QString& iconPath,
                                         const QString& stateName, const QString& message)
{
    setVisualState(state, iconPath, stateName);
    updateLayoutForText(message);
    raise();
    show();
}

void OperationOverlayComponent::showLoading(const QString& message)
{
    stopAutoHide();
    showCard(OPERATION_LOADING, kLoadingIcon, "loading", message);
}

void OperationOverlayComponent::showResult(bool ok, const QString& message, int ms)
{
    stopAutoHide();
    if (ok)
        showCard(OPERATION_SUCCESS, kSuccessIcon, "success", message);
    else
        showCard(OPERATION_FAILED, kFailedIcon, "failed", message);
    startAutoHide(ms);
}

void OperationOverlayComponent::showWarning(const QString& message, int ms)
{
    stopAutoHide();
    showCard(OPERATION_WARNING, kWarningIcon, "warning", message);
    startAutoHide(ms);
}

void OperationOverlayComponent::showResultCode(int status, const OperationTranslate& translate,
                                               int ms)
{
    const QString key = resultTextKey(status);
    showResult(status >= 0, translate ? translate(key) : key, ms);
}

QString OperationOverlayComponent::resultTextKey(int status)
{
    const auto& keys = specialStatusKeys();
    const auto it = keys.find(status);
    if (it != keys.end())
        return QString::fromLatin1(it->second);
    return QString::fromLatin1(status >= 0 ? "point_info.succeed" : "point_info.failed");
}
