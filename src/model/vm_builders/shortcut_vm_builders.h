#pragma once
// Shortcut and connect pages, computed from cache copies.
#include "link/zmq_get_cache.h"
#include "link/zmq_sub_cache.h"
#include "model/view_models/shortcut_view_models.h"

EncoderShortcutPageVM computeEncoderShortcutPageVm(const ZmqSubCache& sub, const ZmqGetCache& get);
DecoderShortcutPageVM computeDecoderShortcutPageVm(const ZmqGetCache& get);
// The quick action list; its content is fixed.
ShortcutVM computeShortcutVm();
ConnectAppVM computeConnectAppVm(const ZmqSubCache& sub, const ZmqGetCache& get);
