#include "pages/shortcut_status_looks.h"

#include "ui/text_manager.h"

#include <initializer_list>

namespace {

const QString kMounted = QStringLiteral("mounted");
const QString kWarning = QStringLiteral("warning");
const QString kError = QStringLiteral("error");
const QString kNormal = QStringLiteral("normal");

bool isOneOf(int value, std::initializer_list<int> values)
{
    for (int v : values) {
        if (v == value)
            return true;
    }
    return false;
}

QString text(const UITextManager* textManager, const QString& key)
{
    return textManager ? textManager->getTextWithFallback(key) : key;
}

QString numbered(const char* pattern, int status)
{
    return QString::fromLatin1(pattern).arg(status);
}

} // namespace

ShortcutStatusLook osdStatusLook(const UITextManager* textManager, int status)
{
    if (status == 1)
        return {text(textManager, numbered("osd_status.osd_status_%1", 1)), kMounted};
    // 0 ("off") is shown in red on purpose, while an unknown number stays grey.
    if (isOneOf(status, {0, 2, 3, 4}))
        return {text(textManager, numbered("osd_status.osd_status_%1", status)), kError};
    return {text(textManager, numbered("osd_status.osd_status_%1", 0)), kNormal};
}

ShortcutStatusLook pushStreamStatusLook(const UITextManager* textManager, int status)
{
    const QString key = numbered("push_status.push_stream_%1", status);
    if (status == 1)
        return {text(textManager, key), kMounted};
    if (isOneOf(status, {2, 3, 4, 6, 7, 8, 11}))
        return {text(textManager, key), kError};
    if (isOneOf(status, {5, 9, 10, 12}))
        return {text(textManager, key), kWarning};
    return {QStringLiteral("-"), kNormal};
}

ShortcutStatusLook decoderStatusLook(const UITextManager* textManager, DecoderSource source,
                                     int status)
{
    if (status == 0) {
        switch (source) {
        case DecoderSource::Pull:
            return {text(textManager, QStringLiteral("pull_status.status_undefined")), kError};
        case DecoderSource::Ndi:
            return {text(textManager, QStringLiteral("pull_status.status_on")), kMounted};
        case DecoderSource::Uvc:
            break;
        }
    }
    const QString numberedText = text(textManager, numbered("pull_status.status_%1", status));
    if (isOneOf(status, {0, 11, 12}))
        return {numberedText, kError};
    if (isOneOf(status, {1, 3, 5, 8, 9, 10}))
        return {numberedText, kMounted};
    if (isOneOf(status, {2, 4, 6}))
        return {numberedText, kWarning};
    return {numberedText, kNormal};
}
