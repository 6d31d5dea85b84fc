#pragma once

#include <QString>

class UITextManager;

// What the status line of a shortcut list row says, and the `state` that
// colours it: "mounted" green, "warning" yellow, "error" red, "normal" grey.
struct ShortcutStatusLook {
    QString text;
    QString state;
};

// Sources of the decoder shortcut pages. A status of 0 means something
// different on each: not configured for a network stream, an error for a USB
// camera, and "available" for an NDI source.
enum class DecoderSource { Pull, Uvc, Ndi };

ShortcutStatusLook osdStatusLook(const UITextManager* textManager, int status);
ShortcutStatusLook pushStreamStatusLook(const UITextManager* textManager, int status);
ShortcutStatusLook decoderStatusLook(const UITextManager* textManager, DecoderSource source,
                                     int status);
