#include "pages/general_edit_page_widget.h"

#include "pages/page_ids.h"
#include "pages/page_widget_helpers.h"
#include "ui/components/style_state.h"
#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

namespace {

constexpr int kArrowSize = 80;
constexpr int kDotSize = 8;
constexpr int kActiveDotWidth = 16;
constexpr int kDotGap = 6;
constexpr int kNavDotsTop = 116;
constexpr int kNavDotsHeight = 12;

const char* const kNdiHx1 = "NDI\u00ae | HX1";
const char* const kNdiHx2 = "NDI\u00ae | HX2";
const char* const kNdiHx3 = "NDI\u00ae | HX3";

// The output keeps the input's frame-rate family, so each input row offers
// only the formats of that family at or below the input's size.
const QStringList kDecodeFormats = {
    "2160p60",     "2160p59.94",  "2160p50",    "2160p30",   "2160p29.97", "2160p25",    "2160p24",
    "2160p23.976", "1080p60",     "1080p59.94", "1080p50",   "1080p30",    "1080p29.97", "1080p25",
    "1080p24",     "1080p23.976", "720p60",     "720p59.94", "720p50"};

enum RateFamily { RATE_60, RATE_50, RATE_24, RATE_OTHER };

RateFamily rateFamily(int fps)
{
    switch (fps) {
    case 60:
    case 120:
    case 30:
        return RATE_60;
    case 50:
    case 100:
    case 25:
        return RATE_50;
    case 24:
        return RATE_24;
    default:
        return RATE_OTHER;
    }
}

const QStringList kUhdFormats[] = {
    {"2160p60", "2160p59.94", "2160p30", "2160p29.97", "1080p60", "1080p59.94", "1080p30",
     "1080p29.97", "720p60", "720p59.94"},
    {"2160p50", "2160p25", "1080p50", "1080p25", "720p50"},
    {"2160p24", "2160p23.976", "1080p24", "1080p23.976"},
};
const QStringList kFullHdFormats[] = {
    {"1080p60", "1080p59.94", "1080p30", "1080p29.97", "720p60", "720p59.94"},
    {"1080p50", "1080p25", "720p50"},
    {"1080p24", "1080p23.976"},
};
const QStringList kHdFormats[] = {
    {"720p60", "720p59.94"},
    {"720p50"},
    {"720p24"},
};

QStringList encodeFormats(int width, int height, int fps)
{
    const RateFamily family = rateFamily(fps);
    // An interlaced 1080 input reports one field: 1920 by 540.
    const bool interlacedFullHd = width == 1920 && height == 540;
    if (family == RATE_OTHER || (height < 720 && !interlacedFullHd)) {
        return kFullHdFormats[RATE_60];
    }
    if (height >= 2160) {
        return kUhdFormats[family];
    }
    if (height >= 1080 || interlacedFullHd) {
        return kFullHdFormats[family];
    }
    return kHdFormats[family];
}

} // namespace

GeneralEditPageWidget::GeneralEditPageWidget(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_mgr(textManager)
{
    setFixedSize(640, 142);
    setAttribute(Qt::WA_StyledBackground);
    setProperty("class", "v2-edit-page");
    createComponents();
    layoutComponents();
}

void GeneralEditPageWidget::createComponents()
{
    body = makeStyled<QWidget>(this, "v2-edit-body");

    left_arrow = makeStyled<QPushButton>(body, "v2-edit-arrow-btn");
    left_arrow->setIcon(QIcon(QStringLiteral(":/icons/general/left.svg")));
    right_arrow = makeStyled<QPushButton>(body, "v2-edit-arrow-btn");
    right_arrow->setIcon(QIcon(QStringLiteral(":/icons/general/right.svg")));
    for (QPushButton* arrow : {left_arrow, right_arrow}) {
        arrow->setFocusPolicy(Qt::NoFocus);
        arrow->setIconSize(QSize(48, 48));
    }
    connect(left_arrow, &QPushButton::clicked, this, &GeneralEditPageWidget::prevOption);
    connect(right_arrow, &QPushButton::clicked, this, &GeneralEditPageWidget::nextOption);

    confirm_btn = makeStyled<QPushButton>(body, "v2-edit-confirm-btn");
    confirm_btn->setFocusPolicy(Qt::NoFocus);
    confirm_btn->setProperty("option-state", "normal");
    option_label = makeStyled<QLabel>(confirm_btn, "v2-edit-option-label");
    option_label->setAlignment(Qt::AlignCenter);
    option_label->setAttribute(Qt::WA_TransparentForMouseEvents);
    option_label->setProperty("option-state", "normal");
    connect(confirm_btn, &QPushButton::clicked, this,
            [this] { emit confirmed(edit_type, current_index); });

    nav_dots = makeStyled<QWidget>(this, "v2-edit-navdots");
    nav_dots->setAttribute(Qt::WA_TransparentForMouseEvents);

    // The header strip has no height: the title reaches the user through the
    // status bar and the way back is the swipe down. It stays for the shell's
    // test commands, which look buttons up by class.
    header = makeStyled<QWidget>(this, "v2-edit-header");
    cancel_btn = makeStyled<QPushButton>(header, "v2-edit-cancel-btn");
    cancel_btn->setFocusPolicy(Qt::NoFocus);
    cancel_icon = createSvgIconLabel(cancel_btn, QStringLiteral(":/icons/general/left.svg"),
                                     QSize(22, 22), QStringLiteral("v2-edit-cancel-icon"));
    cancel_label = makeStyled<QLabel>(cancel_btn, "v2-edit-cancel-label");
    title_label = makeStyled<QLabel>(header, "v2-edit-title");
    title_label->setAlignment(Qt::AlignCenter);
    connect(cancel_btn, &QPushButton::clicked, this, [this] { emit cancelled(return_page); });
}

void GeneralEditPageWidget::layoutComponents()
{
    const int w = width();
    const int h = height();
    header->setGeometry(0, 0, w, 0);
    cancel_btn->setGeometry(8, -18, 120, 36);
    cancel_icon->setGeometry(8, 7, 22, 22);
    cancel_label->setGeometry(34, 0, 82, 36);
    title_label->setGeometry((w - 300) / 2, 0, 300, 0);

    body->setGeometry(0, 0, w, h);
    const int arrowTop = (h - kArrowSize) / 2 - 4;
    left_arrow->setGeometry(8, arrowTop, kArrowSize, kArrowSize);
    right_arrow->setGeometry(w - 88, arrowTop, kArrowSize, kArrowSize);
    confirm_btn->setGeometry(96, (h - kArrowSize) / 2, w - 192, 72);
    option_label->setGeometry(0, 0, w - 192, 72);
    nav_dots->setGeometry(0, kNavDotsTop, w, kNavDotsHeight);
    header->raise();
}

QString GeneralEditPageWidget::translate(const QString& key, const QString& fallback) const
{
    if (!text_mgr) {
        return fallback.isEmpty() ? key : fallback;
    }
    const QString text = text_mgr->getTextWithFallback(key);
    if (text == key && !fallback.isEmpty()) {
        return fallback;
    }
    return text;
}

void GeneralEditPageWidget::setVoFormatContext(int width, int height, int fps,
                                               const QString& format, int workMode)
{
    in_width = width;
    in_height = height;
    in_fps = fps;
    current_format = format;
    work_mode = workMode;
}

void GeneralEditPageWidget::setPtzProtoContext(int usb2serial, int workMode)
{
    ptz_usb2serial = usb2serial;
    work_mode = workMode;
}

void GeneralEditPageWidget::initVoFormatOptions()
{
    const QStringList formats =
        work_mode == 1 ? kDecodeFormats : encodeFormats(in_width, in_height, in_fps);
    for (const QString& format : formats) {
        option_sources.append({format, false});
    }
    current_index = 0;
    if (!current_format.isEmpty()) {
        const int found = formats.indexOf(current_format);
        if (found >= 0) {
            current_index = found;
        }
    }
}

void GeneralEditPageWidget::setupEditOptions(int editType)
{
    auto keys = [this](std::initializer_list<const char*> list) {
        for (const char* key : list) {
            option_sources.append({QString::fromUtf8(key), true});
        }
    };
    auto literals = [this](std::initializer_list<const char*> list) {
        for (const char* text : list) {
            option_sources.append({QString::fromUtf8(text), false});
        }
    };

    option_sources.clear();
    current_index = 0;
    title_fallback.clear();
    QString titleKey;
    switch (editType) {
    case EDIT_LANGUAGE:
        titleKey = "system_settings.language";
        keys({"language.chinese", "language.english", "language.portuguese", "language.french",
              "language.japanese"});
        break;
    case EDIT_THEME:
        titleKey = "system_settings.theme";
        keys({"theme.black", "theme.blue"});
        break;
    case EDIT_WORK_MODE:
        titleKey = "system_settings.workmode";
        keys({"workmode.encode", "workmode.decode"});
        break;
    case EDIT_FAN_MODE:
        titleKey = "system_settings.fan";
        keys({"fan_mode.silent", "fan_mode.standard", "fan_mode.performance"});
        break;
    case EDIT_USB_MODE:
        titleKey = "system_settings.usbmode";
        literals({"HOST", "DEVICE"});
        break;
    case EDIT_PTZ_PROTOCOL:
        // Same order as the backend's protocol list, so an index converts
        // directly to a wire value.
        titleKey = "camera_settings.ptz_protocol";
        literals({"VISCA over IP"});
        if (ptz_usb2serial == 1) {
            literals({"VISCA", "PELCO D", "PELCO P"});
        }
        if (work_mode == 1) {
            literals({"NDI\u00ae", "UVC"});
        }
        break;
    case EDIT_TALLY_MODE:
        titleKey = "camera_settings.tally_mode";
        keys({"tally_mode.auto", "tally_mode.manual", "tally_mode.tally", "tally_mode.gameing"});
        break;
    case EDIT_TALLY_LIGHT:
        titleKey = "camera_settings.tally_light";
        keys({"tally_light.off", "tally_light.red", "tally_light.green"});
        break;
    case EDIT_VO_FORMAT:
        titleKey = "video_settings.vo_format";
        title_fallback = "Output Format";
        initVoFormatOptions();
        break;
    case EDIT_AUDIO_SOURCE:
        titleKey = "audio_settings.audio_source";
        title_fallback = "Audio Source";
        keys({"audio_source.line", "audio_source.mic", "audio_source.hdmi", "audio_source.usb"});
        break;
    case EDIT_NDI_QUALITY:
        titleKey = "media_settings.ndi_quality";
        title_fallback = "NDI Quality";
        literals({kNdiHx1, kNdiHx2, kNdiHx3});
        break;
    case EDIT_RECORD_DISK:
        titleKey = "media_settings.disk_select";
        title_fallback = "Record Disk";
        literals({"TF", "USB1", "NAS"});
        break;
    default:
        break;
    }
    title_key_for_type = titleKey;
    title = titleKey.isEmpty() ? QString() : translate(titleKey, title_fallback);
    translateOptions();
}

void GeneralEditPageWidget::translateOptions()
{
    options.clear();
    for (const OptionSource& source : option_sources) {
        options.append(source.is_key ? translate(source.text, QString()) : source.text);
    }
}

void GeneralEditPageWidget::enterEditMode(int editType, int returnPage, int actualIndex)
{
    edit_type = editType;
    return_page = returnPage;
    setupEditOptions(editType);
    if (isValidIndex(actualIndex)) {
        current_index = actualIndex;
        actual_index = actualIndex;
    } else {
        actual_index = isValidIndex(current_index) ? current_index : -1;
    }
    updateDisplay();
}

void GeneralEditPageWidget::updateFromVm(const EditModePageVM& vm)
{
    // After a language change the page is rebuilt; the option the user was
    // looking at must survive that.
    const bool keepSelection = dirty && vm.editType == edit_type && vm.returnPage == return_page
                               && isValidIndex(current_index);
    const int userIndex = current_index;
    enterEditMode(vm.editType, vm.returnPage, vm.actualIndex);
    if (keepSelection && isValidIndex(userIndex)) {
        current_index = userIndex;
    }
    if (isValidIndex(vm.actualIndex)) {
        actual_index = vm.actualIndex;
    } else if (vm.editType == EDIT_VO_FORMAT && !current_format.isEmpty()) {
        actual_index = options.indexOf(current_format);
    }
    updateDisplay();
}

void GeneralEditPageWidget::setActualIndex(int index)
{
    if (!isValidIndex(index)) {
        return;
    }
    actual_index = index;
    updateDisplay();
}

QString GeneralEditPageWidget::currentOption() const
{
    return isValidIndex(current_index) ? options.at(current_index) : QString();
}

int GeneralEditPageWidget::currentStorageId() const
{
    static const int kStorageIds[] = {0, 1, 3};
    if (edit_type != EDIT_RECORD_DISK || current_index < 0 || current_index > 2) {
        return -1;
    }
    return kStorageIds[current_index];
}

void GeneralEditPageWidget::prevOption()
{
    if (options.isEmpty()) {
        return;
    }
    current_index = (current_index - 1 + options.size()) % options.size();
    updateDisplay();
}

void GeneralEditPageWidget::nextOption()
{
    if (options.isEmpty()) {
        return;
    }
    current_index = (current_index + 1) % options.size();
    updateDisplay();
}

void GeneralEditPageWidget::updateDisplay()
{
    if (dirty) {
        onLanguageChanged();
        dirty = false;
    }
    option_label->setText(currentOption());
    const QString state =
        (isValidIndex(current_index) && current_index == actual_index) ? "actual" : "normal";
    for (QWidget* widget :
         {static_cast<QWidget*>(confirm_btn), static_cast<QWidget*>(option_label)}) {
        if (widget->property("option-state").toString() != state) {
            widget->setProperty("option-state", state);
            repolish(widget);
        }
    }
    updateNavDots();
}

void GeneralEditPageWidget::updatePageDisplay()
{
    updateDisplay();
}

void GeneralEditPageWidget::updateNavDots()
{
    while (dots.size() < options.size()) {
        auto* dot = makeStyled<QLabel>(nav_dots, "navdot");
        dot->hide();
        dots.append(dot);
    }
    for (int i = 0; i < dots.size(); ++i) {
        const char* cls = (i == current_index) ? "navdot-active" : "navdot";
        if (dots[i]->property("class").toString() != QLatin1String(cls)) {
            dots[i]->setProperty("class", cls);
            repolish(dots[i]);
        }
    }
    layoutNavDots();
}

void GeneralEditPageWidget::layoutNavDots()
{
    const int n = options.size();
    nav_dots->setVisible(n > 1);
    const int total = n > 0 ? (n - 1) * (kDotSize + kDotGap) + kActiveDotWidth : 0;
    int x = (nav_dots->width() - total) / 2;
    for (int i = 0; i < dots.size(); ++i) {
        if (i >= n) {
            dots[i]->hide();
            continue;
        }
        const int w = (i == current_index) ? kActiveDotWidth : kDotSize;
        dots[i]->setGeometry(x, (kNavDotsHeight - kDotSize) / 2, w, kDotSize);
        dots[i]->show();
        x += w + kDotGap;
    }
}

void GeneralEditPageWidget::onLanguageChanged()
{
    if (!text_mgr) {
        return;
    }
    const QString back = text_mgr->getTextWithFallback(QStringLiteral("edit_page.back"));
    cancel_label->setText(back == QLatin1String("edit_page.back") ? QStringLiteral("Back") : back);
    if (!title_key_for_type.isEmpty()) {
        title = translate(title_key_for_type, title_fallback);
    }
    title_label->setText(title);
    translateOptions();
    option_label->setText(currentOption());
}

int GeneralEditPageWidget::onSwipeLeft(int)
{
    nextOption();
    return -1;
}

int GeneralEditPageWidget::onSwipeRight(int)
{
    prevOption();
    return -1;
}

int GeneralEditPageWidget::onEdgeSwipeToCenter(int)
{
    return PAGE_STATUS_1;
}

int GeneralEditPageWidget::onSwipeDown(int)
{
    return return_page;
}
