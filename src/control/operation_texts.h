#pragma once
// Texts of the operation card beyond the plain status table: the disk cards
// of the record and disk controls, and how a key becomes a text when the
// panel may be running without its text manager.
#include "ui/operation_overlay_component.h"

#include <QString>

// What a disk card says for a disk status that isn't "ready" (1).
QString diskStatusTextKey(int diskStatus);

// The disk cards' text when no text manager is there to translate.
inline constexpr const char* kStorageUnavailableText = "Storage unavailable";
// The speed test's start card without a text manager: the panel's own
// language is Chinese, so that is the built-in wording.
QString builtInDiskSpeedStartedText();

// A text to show: a key to translate, and what to show when nothing can
// translate it (empty: the key itself).
struct CardText {
    QString key;
    QString fallback;

    bool isEmpty() const { return key.isEmpty(); }
    bool operator==(const CardText& o) const { return key == o.key && fallback == o.fallback; }
};

CardText diskStatusCardText(int diskStatus);
QString resolveCardText(const OperationTranslate& translate, const CardText& text);
