#pragma once
// Records of the pages that act: record, push stream and OSD switches,
// decoding sources, the quick action list and the app connection.
#include "link/zmq_sub_cache.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <nlohmann/json.hpp>

#include <string>
#include <tuple>

// The record task named when no valid disk is chosen, so that the record
// button always has a task to address.
inline const char* const kFallbackRecordTaskId = "sdcard_0";

// A row of the decoder shortcut pages (NDI, network stream, USB camera).
struct DecoderShortcutItemInfo {
    int id = 0;
    QString name;
    bool enabled = true;
    bool is_on = false;
    int status = 0;
    int aux = 0;
    int format_check = 1;
    int resolution_check = 1;
    int fps_check = 1;

    auto fields() const
    {
        return std::tie(id, name, enabled, is_on, status, aux, format_check, resolution_check,
                        fps_check);
    }
    bool operator==(const DecoderShortcutItemInfo& o) const { return fields() == o.fields(); }
    bool operator!=(const DecoderShortcutItemInfo& o) const { return !(*this == o); }
};

struct EncoderShortcutPageVM {
    int record_status = 0;
    QString record_task_id = QString::fromLatin1(kFallbackRecordTaskId);
    bool any_disk_present = false;
    int disk_total = 0;
    int disk_used = 0;
    int disk_free = 0;
    int disk_status = 0;
    int disk_type = -1;
    int disk_icon_level = 0;
    bool disk_speed_testing = false; // set by the window for delivery
    QList<OsdItemInfo> osd_items;
    QList<PushStreamItemInfo> push_streams;

    auto fields() const
    {
        return std::tie(record_status, record_task_id, any_disk_present, disk_total, disk_used,
                        disk_free, disk_status, disk_type, disk_icon_level, disk_speed_testing,
                        osd_items, push_streams);
    }
    bool operator==(const EncoderShortcutPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const EncoderShortcutPageVM& o) const { return !(*this == o); }
};

struct DecoderShortcutPageVM {
    QList<DecoderShortcutItemInfo> ndi_items;
    QList<DecoderShortcutItemInfo> net_items;
    QList<DecoderShortcutItemInfo> uvc_items;

    auto fields() const { return std::tie(ndi_items, net_items, uvc_items); }
    bool operator==(const DecoderShortcutPageVM& o) const { return fields() == o.fields(); }
    bool operator!=(const DecoderShortcutPageVM& o) const { return !(*this == o); }
};

// The quick action list; `config` holds {"list": [{"function": ...}, ...]}.
struct ShortcutVM {
    int current = 0;
    int count = 0;
    nlohmann::json config;

    auto fields() const { return std::tie(current, count, config); }
    bool operator==(const ShortcutVM& o) const { return fields() == o.fields(); }
    bool operator!=(const ShortcutVM& o) const { return !(*this == o); }
};

struct ConnectAppVM {
    int ap_on = 0;
    int wifi_status = 0;
    std::string ip;
    std::string ap_ssid;
    std::string ap_psk;
    int connect_status = 0;

    auto fields() const
    {
        return std::tie(ap_on, wifi_status, ip, ap_ssid, ap_psk, connect_status);
    }
    bool operator==(const ConnectAppVM& o) const { return fields() == o.fields(); }
    bool operator!=(const ConnectAppVM& o) const { return !(*this == o); }
};

// The Bluetooth pairing page's state; no flow of the panel fills it.
struct ConnectBTVM {
    int status = 0;
    bool connected = false;

    auto fields() const { return std::tie(status, connected); }
    bool operator==(const ConnectBTVM& o) const { return fields() == o.fields(); }
    bool operator!=(const ConnectBTVM& o) const { return !(*this == o); }
};

Q_DECLARE_METATYPE(DecoderShortcutItemInfo)
Q_DECLARE_METATYPE(EncoderShortcutPageVM)
Q_DECLARE_METATYPE(DecoderShortcutPageVM)
Q_DECLARE_METATYPE(ShortcutVM)
Q_DECLARE_METATYPE(ConnectAppVM)
Q_DECLARE_METATYPE(ConnectBTVM)
