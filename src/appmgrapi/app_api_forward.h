#pragma once
// How every AppManager operation reaches the worker: a guard against a
// missing worker, no exception past this layer, and the decoding of a JSON
// read into the caller's record.
#include "link/zmq_sub_worker.h"
#include "transport/harvelin_log.h"

#include <exception>
#include <utility>

namespace appapi {

constexpr int kFailure = -3;

using JsonRead = int (ZmqSubWorker::*)(json&);

// Runs `call(worker)`; -3 without a worker or on an escaping exception.
template <class Call> int withWorker(ZmqSubWorker* worker, Call&& call)
{
    if (!worker) {
        LOG_ERR("zmq_sub_worker is not initialized.\n");
        return kFailure;
    }
    try {
        return call(*worker);
    } catch (const std::exception& e) {
        LOG_ERR("Exception: %s\n", e.what());
        return kFailure;
    }
}

// Calls the worker operation of the same meaning with the same arguments.
template <class... Params, class... Args>
int forward(ZmqSubWorker* worker, int (ZmqSubWorker::*operation)(Params...), Args&&... args)
{
    return withWorker(worker, [&](ZmqSubWorker& target) {
        return (target.*operation)(std::forward<Args>(args)...);
    });
}

// Reads JSON with `read`: a negative status is returned and the caller's
// data stays as it was. Otherwise `decode(value)` fills the caller's data
// and gives the result; a value of the wrong JSON type is logged under
// `name` and gives -3, leaving what was decoded before it.
template <class Decode>
int decodeRead(ZmqSubWorker* worker, JsonRead read, const char* name, Decode&& decode)
{
    return withWorker(worker, [&](ZmqSubWorker& target) {
        json value;
        const int status = (target.*read)(value);
        if (status < 0)
            return status;
        try {
            return decode(value);
        } catch (const json::exception& e) {
            LOG_ERR("%s JSON parse error: %s\n", name, e.what());
            return kFailure;
        }
    });
}

} // namespace appapi
