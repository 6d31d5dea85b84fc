#include "control/operation_texts.h"

QString diskStatusTextKey(int diskStatus)
{
    switch (diskStatus) {
    case 0:
        return QStringLiteral("disk_status.disk_unmounted");
    case 2:
        return QStringLiteral("disk_status.disk_full");
    case 3:
        return QStringLiteral("disk_status.disk_readonly");
    case 4:
        return QStringLiteral("disk_status.disk_error");
    case 5:
        return QStringLiteral("disk_status.disk_fs_unsupported");
    default:
        return QStringLiteral("disk_status.disk_other_error");
    }
}

QString builtInDiskSpeedStartedText()
{
    return QString::fromUtf8("磁盘测速中，请稍候…");
}

CardText diskStatusCardText(int diskStatus)
{
    return {diskStatusTextKey(diskStatus), QString::fromLatin1(kStorageUnavailableText)};
}

QString resolveCardText(const OperationTranslate& translate, const CardText& text)
{
    if (translate)
        return translate(text.key);
    return text.fallback.isEmpty() ? text.key : text.fallback;
}
