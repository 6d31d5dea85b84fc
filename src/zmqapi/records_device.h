#pragma once
// Records of the system, network and camera head domains.
#include <QString>

#include <tuple>

struct VersionInfo {
    QString hardware_version;
    QString firmware_version;
    QString device_name;
    QString SN;

    bool operator==(const VersionInfo& o) const
    {
        return std::tie(hardware_version, firmware_version, device_name, SN)
               == std::tie(o.hardware_version, o.firmware_version, o.device_name, o.SN);
    }
    bool operator!=(const VersionInfo& o) const { return !(*this == o); }
};

struct DashBoardInfo {
    QString persistent_time;
    QString device_strat_time; // spelled so on the wire

    bool operator==(const DashBoardInfo& o) const
    {
        return persistent_time == o.persistent_time && device_strat_time == o.device_strat_time;
    }
    bool operator!=(const DashBoardInfo& o) const { return !(*this == o); }
};

struct TallyInfo {
    int switch_on = 0;
    int mode_id = 0;
    int color_id = 0;

    bool operator==(const TallyInfo& o) const
    {
        return std::tie(switch_on, mode_id, color_id)
               == std::tie(o.switch_on, o.mode_id, o.color_id);
    }
    bool operator!=(const TallyInfo& o) const { return !(*this == o); }
};

struct ApInfo {
    QString ssid;
    QString psk;

    bool operator==(const ApInfo& o) const { return ssid == o.ssid && psk == o.psk; }
    bool operator!=(const ApInfo& o) const { return !(*this == o); }
};

struct PtzctrlInfo {
    int protocol = 0;   // wire value: 1, 3, 4, 5, 7 or 9
    int usb2serial = 0; // 1 offers the serial protocols 3, 4 and 5

    bool operator==(const PtzctrlInfo& o) const
    {
        return protocol == o.protocol && usb2serial == o.usb2serial;
    }
    bool operator!=(const PtzctrlInfo& o) const { return !(*this == o); }
};
