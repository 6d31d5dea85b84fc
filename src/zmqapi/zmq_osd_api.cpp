// OSD domain operations of ZmqSubWorker. Layout state arrives by topic; the
// switch sends exactly what it is given and keeps nothing.
#include "zmqapi/zmq_api_patterns.h"

int ZmqSubWorker::setOsdLayoutSwitch(int id, int layout_switch)
{
    return sendOsdApiControl(zmqapi::command("osd_layout", "set_layout_switch",
                                             {{"id", id}, {"switch", layout_switch}}));
}
