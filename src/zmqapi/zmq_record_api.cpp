// Record domain operations of ZmqSubWorker.
#include "zmqapi/zmq_api_patterns.h"

using zmqapi::command;

namespace {

template <class Value>
int sendTaskInfo(ZmqSubWorker& worker, const std::string& index, const char* key,
                 const Value& value)
{
    return worker.sendRecordApiControl(
        command(nullptr, "set_task_info", {{"index", index}, {key, value}}));
}

} // namespace

int ZmqSubWorker::setRecordTaskEnable(const std::string& index, int enable)
{
    return sendRecordApiControl(
        command(nullptr, "set_task_enable", {{"index", index}, {"enable", enable}}));
}

int ZmqSubWorker::stopAllRecordTasks()
{
    return sendRecordApiControl(zmqapi::request(nullptr, "stop_all_task"));
}

int ZmqSubWorker::setRecordTaskName(const std::string& index, const std::string& name)
{
    return sendTaskInfo(*this, index, "name", name);
}
int ZmqSubWorker::setRecordTaskFormat(const std::string& index, int record_format)
{
    return sendTaskInfo(*this, index, "record_format", record_format);
}
int ZmqSubWorker::setRecordTaskMode(const std::string& index, int record_mode)
{
    return sendTaskInfo(*this, index, "record_mode", record_mode);
}
int ZmqSubWorker::setRecordTaskLoopMode(const std::string& index, int record_loop_mode)
{
    return sendTaskInfo(*this, index, "record_loop_mode", record_loop_mode);
}
int ZmqSubWorker::setRecordTaskSizeLimit(const std::string& index, int size_limit)
{
    return sendTaskInfo(*this, index, "size_limit", size_limit);
}
int ZmqSubWorker::setRecordTaskTimeLimit(const std::string& index, int time_limit)
{
    return sendTaskInfo(*this, index, "time_limit", time_limit);
}
int ZmqSubWorker::setRecordTaskLimitType(const std::string& index, int limit_type)
{
    return sendTaskInfo(*this, index, "limit_type", limit_type);
}

int ZmqSubWorker::getRecordTaskList(json& out)
{
    return zmqapi::get(*this, &ZmqSubWorker::getRecordApiInfo, nullptr, "get_task_list", out);
}
