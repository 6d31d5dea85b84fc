#include "pages/shortcut_page_widget.h"

#include "ui/components/shortcut_list_component.h"
#include "ui/text_manager.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QVariant>

namespace {

constexpr int kActionRowWidth = 160;
constexpr int kActionRowHeight = 110;
constexpr int kRowPitch = 180;
constexpr int kFullListWidth = 2140;
constexpr int kDotSize = 8;

// The dots are coloured in code, the same in both themes.
const char* const kDotStyle = "background: #cce0ff; border-radius: 4px;";
const char* const kActiveDotStyle = "background: #4080FF; border-radius: 4px;";

struct ShortcutFunction {
    const char* function;
    const char* icon;
    const char* textKey;
};

const ShortcutFunction kKnownFunctions[] = {
    {"LockLcd", ":/icons/statusbar/lock.svg", "camera_settings.lcd_lock"},
    {"Standby", ":/icons/system_settings/standby.svg", "system_settings.standby"},
    {"ShutDown", ":/icons/system_settings/shutdown.svg", "system_settings.shutdown"},
    {"Restart", ":/icons/system_settings/reboot.svg", "system_settings.reboot"},
};

const ShortcutFunction* findFunction(const QString& function)
{
    for (const ShortcutFunction& known : kKnownFunctions) {
        if (function == QLatin1String(known.function))
            return &known;
    }
    return nullptr;
}

QString functionOf(const nlohmann::json& entry)
{
    if (!entry.is_object())
        return QString();
    const auto it = entry.find("function");
    if (it == entry.end() || !it->is_string())
        return QString();
    return QString::fromStdString(it->get<std::string>());
}

} // namespace

ShortcutPageWidget::ShortcutPageWidget(UITextManager* textManager, QWidget* parent)
    : BasicPage(textManager, parent)
{
    createComponents();
}

void ShortcutPageWidget::createComponents()
{
    scroll_area = new QScrollArea(this);
    scroll_area->setGeometry(50, 0, 540, 110);
    scroll_area->setFrameShape(QFrame::NoFrame);
    scroll_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_area->setWidgetResizable(false);
    scroll_area->setStyleSheet(QStringLiteral("background: transparent;"));
    content = new QWidget;
    content->setStyleSheet(QStringLiteral("background: transparent;"));
    scroll_area->setWidget(content);
    connect(scroll_area->horizontalScrollBar(), &QScrollBar::valueChanged, this,
            &ShortcutPageWidget::updateDots);

    dot_strip = new QWidget(this);
    dot_strip->setGeometry(0, 130, width(), 12);
    dot_layout = new QHBoxLayout(dot_strip);
    dot_layout->setAlignment(Qt::AlignCenter);
    dot_layout->setSpacing(6);
    dot_layout->setContentsMargins(0, 0, 0, 0);
    dot_strip->hide();

    unused_slider = new QSlider(Qt::Horizontal, this);
    unused_slider->setProperty("class", "shortcut");
    unused_slider->setEnabled(false);
    unused_slider->hide();
}

int ShortcutPageWidget::homeOrReturnPage() const
{
    return return_page < 0 ? 0 : return_page;
}

int ShortcutPageWidget::onSwipeLeft(int)
{
    if (canScrollRight())
        scrollListRight();
    return -1;
}

int ShortcutPageWidget::onSwipeRight(int)
{
    if (canScrollLeft())
        scrollListLeft();
    return -1;
}

int ShortcutPageWidget::onEdgeSwipeToCenter(int)
{
    return homeOrReturnPage();
}
int ShortcutPageWidget::onSwipeUp(int)
{
    return homeOrReturnPage();
}
int ShortcutPageWidget::onSwipeDown(int)
{
    return homeOrReturnPage();
}

bool ShortcutPageWidget::canScrollLeft() const
{
    return ShortcutListComponent::canScrollLeft(scroll_area);
}

bool ShortcutPageWidget::canScrollRight() const
{
    return ShortcutListComponent::canScrollRight(scroll_area);
}

bool ShortcutPageWidget::scrollListLeft()
{
    return ShortcutListComponent::scrollLeft(scroll_area);
}

bool ShortcutPageWidget::scrollListRight()
{
    return ShortcutListComponent::scrollRight(scroll_area);
}

void ShortcutPageWidget::updateFromVm(const ShortcutVM& vm)
{
    if (takeDirty())
        onLanguageChanged();
    current_index = vm.current;
    updateShortcutList(vm.config);
}

void ShortcutPageWidget::onLanguageChanged()
{
    if (!text_manager)
        return;
    for (int i = 0; i < row_labels.size(); ++i) {
        const ShortcutFunction* known = findFunction(row_functions.at(i));
        if (known)
            row_labels[i]->setText(
                text_manager->getTextWithFallback(QLatin1String(known->textKey)));
    }
}

void ShortcutPageWidget::clearRows()
{
    qDeleteAll(row_buttons);
    row_buttons.clear();
    row_labels.clear();
    row_functions.clear();
    qDeleteAll(dot_labels);
    dot_labels.clear();
}

void ShortcutPageWidget::updateShortcutList(const nlohmann::json& list)
{
    // An unchanged list keeps its rows, and with them the scroll position.
    if (list == last_list)
        return;
    clearRows();
    last_list = list;

    const auto entries = list.is_object() ? list.find("list") : list.end();
    if (!list.is_object() || entries == list.end() || !entries->is_array() || entries->empty()) {
        scroll_area->hide();
        dot_strip->hide();
        return;
    }
    scroll_area->show();

    int n = int(entries->size());
    if (n >= kMaxRows) {
        n = kMaxRows;
        content->resize(kFullListWidth, kActionRowHeight);
    } else {
        content->resize(n * kActionRowWidth + (n - 1) * (kRowPitch - kActionRowWidth),
                        kActionRowHeight);
    }

    if (n < 4) {
        dot_strip->hide();
    } else {
        dot_strip->show();
        for (int i = 0; i < n; ++i) {
            auto* dot = new QLabel(dot_strip);
            dot->setFixedSize(kDotSize, kDotSize);
            dot->setStyleSheet(QLatin1String(kDotStyle));
            dot_layout->addWidget(dot);
            dot_labels.append(dot);
        }
    }

    for (int i = 0; i < n; ++i)
        addRow(i, functionOf(entries->at(size_t(i))));
    updateDots();
}

void ShortcutPageWidget::addRow(int index, const QString& function)
{
    const ShortcutFunction* known = findFunction(function);

    auto* button = new QPushButton(content);
    button->setFocusPolicy(Qt::NoFocus);
    button->setProperty("class", "v2-shurtcut-btn");
    button->setGeometry(index * kRowPitch, 0, kActionRowWidth, kActionRowHeight);

    auto* circle = new QLabel(button);
    circle->setProperty("class", "v2-shurtcut-label");
    circle->setGeometry(42, 10, 76, 76);

    auto* icon = new QLabel(button);
    icon->setProperty("class", "v2-shortcut-status");
    icon->setGeometry(42, 10, 76, 76);
    icon->setAlignment(Qt::AlignCenter);
    if (known)
        icon->setPixmap(QPixmap(QLatin1String(known->icon)));

    auto* label = new QLabel(button);
    label->setProperty("class", "v2-sys-card-label");
    label->setGeometry(0, 86, kActionRowWidth, 24);
    label->setAlignment(Qt::AlignCenter);
    if (known && text_manager)
        label->setText(text_manager->getTextWithFallback(QLatin1String(known->textKey)));

    connect(button, &QPushButton::clicked, this,
            [this, function] { emit shortcutKeyClicked(function); });
    button->show();
    row_buttons.append(button);
    row_labels.append(label);
    row_functions.append(function);
}

// Marks the dots of the rows in view: the first row whose larger part is in
// view and the ones after it, as many as fit at once.
void ShortcutPageWidget::updateDots()
{
    for (QLabel* dot : dot_labels)
        dot->setStyleSheet(QLatin1String(kDotStyle));
    const int first = (scroll_area->horizontalScrollBar()->value() + 20) / kRowPitch;
    for (int i = first; i < first + shortcut_num && i < dot_labels.size(); ++i)
        dot_labels[i]->setStyleSheet(QLatin1String(kActiveDotStyle));
}
