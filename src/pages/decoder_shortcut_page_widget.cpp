#include "pages/decoder_shortcut_page_widget.h"

#include "pages/page_ids.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QVariant>

namespace {

const DecoderShortcutPageConfig kPullPage{DecoderSource::Pull, "statusbar.context.pull_ctrl",
                                          "decoder_shortcut.pull_empty", PAGE_STATUS_1,
                                          PAGE_DECODER_SHORTCUT_2};
const DecoderShortcutPageConfig kUvcPage{DecoderSource::Uvc, "statusbar.context.uvc_ctrl",
                                         "decoder_shortcut.uvc_empty", PAGE_DECODER_SHORTCUT_1,
                                         PAGE_DECODER_SHORTCUT_3};
const DecoderShortcutPageConfig kNdiPage{DecoderSource::Ndi, "statusbar.context.ndi_ctrl",
                                         "decoder_shortcut.ndi_empty", PAGE_DECODER_SHORTCUT_2, -1};

// An NDI source is lit as soon as it plays in any way; the others follow
// their switch.
bool rowIsActive(DecoderSource source, const DecoderShortcutItemInfo& item)
{
    return source == DecoderSource::Ndi ? item.status >= 1 : item.is_on;
}

} // namespace

DecoderShortcutPageBase::DecoderShortcutPageBase(const DecoderShortcutPageConfig& pageConfig,
                                                 UITextManager* textManager, QWidget* parent)
    : ShortcutListPage(textManager, parent), config(pageConfig)
{
    title_label = new QLabel(this);
    title_label->setProperty("class", "v2-sys-card-label");
    title_label->hide();
}

int DecoderShortcutPageBase::onSwipeLeft(int)
{
    return swipeLeftOr(config.swipeLeftPage);
}
int DecoderShortcutPageBase::onSwipeRight(int)
{
    return swipeRightOr(config.swipeRightPage);
}
int DecoderShortcutPageBase::onEdgeSwipeToCenter(int)
{
    return PAGE_STATUS_1;
}
int DecoderShortcutPageBase::onSwipeUp(int)
{
    return PAGE_MAIN_MENU_1;
}
int DecoderShortcutPageBase::onSwipeDown(int)
{
    return PAGE_CONNECT_APP;
}

QString DecoderShortcutPageBase::text(const char* key) const
{
    return text_manager ? text_manager->getTextWithFallback(QString::fromLatin1(key)) : QString();
}

void DecoderShortcutPageBase::applyList(const QList<DecoderShortcutItemInfo>& list)
{
    if (takeDirty())
        onLanguageChanged();
    if (list != last_list)
        last_list = list;
    updateList(last_list);
}

void DecoderShortcutPageBase::onLanguageChanged()
{
    title_label->setText(text(config.titleKey));
    if (!last_list.isEmpty())
        updateList(last_list);
    if (!emptyHint()->isHidden())
        emptyHint()->setText(text(config.emptyKey));
}

void DecoderShortcutPageBase::updateList(const QList<DecoderShortcutItemInfo>& list)
{
    QVector<Row> rows;
    for (const DecoderShortcutItemInfo& item : list)
        rows.append({item.id, item.is_on, item.name,
                     decoderStatusLook(text_manager, config.source, item.status),
                     rowIsActive(config.source, item)});
    showRows(rows, text(config.emptyKey));
}

DecoderShortcutPage1Widget::DecoderShortcutPage1Widget(UITextManager* textManager, QWidget* parent)
    : DecoderShortcutPageBase(kPullPage, textManager, parent)
{
}

DecoderShortcutPage2Widget::DecoderShortcutPage2Widget(UITextManager* textManager, QWidget* parent)
    : DecoderShortcutPageBase(kUvcPage, textManager, parent)
{
}

DecoderShortcutPage3Widget::DecoderShortcutPage3Widget(UITextManager* textManager, QWidget* parent)
    : DecoderShortcutPageBase(kNdiPage, textManager, parent)
{
}
