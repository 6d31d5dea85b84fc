// The two long sessions beside the control jobs: the disk speed test and the
// NDI source search, held by DiskSpeedTestSession and NdiSearchSession.
#include "shell/widget.h"

#include "control/disk_speed_test_session.h"
#include "control/ndi_search_session.h"

void Widget::invalidateDiskSpeedPoll()
{
    disk_speed->invalidateDiskSpeedPoll();
}

void Widget::cancelDiskSpeedTestSession()
{
    disk_speed->cancelDiskSpeedTestSession();
}

bool Widget::isDiskSpeedTestActive() const
{
    return disk_speed->isDiskSpeedTestActive();
}

void Widget::startDecNdiFindAsync()
{
    ndi_search->startDecNdiFindAsync();
}
