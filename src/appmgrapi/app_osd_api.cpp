// OSD domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"

int AppManager::setOsdLayoutSwitch(int id, int layout_switch)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setOsdLayoutSwitch, id,
                           layout_switch);
}
