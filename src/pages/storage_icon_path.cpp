#include "pages/storage_icon_path.h"

QString storageIconPath(int diskType, int level)
{
    const char* disk = nullptr;
    switch (diskType) {
    case 0:
        disk = "sdcard";
        break;
    case 1:
        disk = "udisk";
        break;
    case 3:
        disk = "nas";
        break;
    default:
        return QString();
    }
    const char* fill = "unmount";
    switch (level) {
    case 1:
        fill = "0";
        break;
    case 2:
        fill = "30";
        break;
    case 3:
        fill = "60";
        break;
    case 4:
        fill = "full";
        break;
    default:
        break;
    }
    return QStringLiteral(":/icons/statusbar/%1_%2.svg")
        .arg(QLatin1String(disk), QLatin1String(fill));
}
