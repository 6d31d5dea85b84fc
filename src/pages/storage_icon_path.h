#pragma once

#include <QString>

// ":/icons/statusbar/<disk>_<fill>.svg" for a record disk (0 SD card, 1 USB
// disk, 3 NAS) at a fill level of 1 to 4; any other level shows the disk as
// unmounted. Empty for any other disk type.
QString storageIconPath(int diskType, int level);
