#pragma once
// The shapes that every domain operation of ZmqSubWorker is built from:
// request builders, the reading of a reply into a JSON result, and the
// read-modify-write of state that the backend wants back whole.
#include "link/zmq_sub_worker.h"
#include "transport/harvelin_log.h"

#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

namespace zmqapi {

using InfoFunction = std::string (ZmqSubWorker::*)(const json&);
using ControlFunction = int (ZmqSubWorker::*)(const json&);
using JsonRead = int (ZmqSubWorker::*)(json&);

constexpr int kFailure = -3;
constexpr int kNotPermitted = -2;
constexpr int kUnknownCode = ZmqSubWorker::kUnknownCode;

// A request naming `group` and `opt`; a null name leaves its key out.
json request(const char* group, const char* opt = nullptr);
// The same with a `data` object.
json command(const char* group, const char* opt, json data);

// What marks a reply as good and where its result stands.
struct ReplyForm {
    const char* word_key; // key that must hold `word`; null: no word is looked at
    const char* word;
    const char* result_key; // key of the result; null: the whole reply
    // Domains that answer some failures with a bare code: when the word check
    // fails the reply text goes through this map (-9999 read as -3).
    ZmqSubWorker::StatusMapper failure_mapper = nullptr;
};

constexpr ReplyForm kDataReply{"rsp", "succeed", "data"};
constexpr ReplyForm kDataReplyAnyWord{nullptr, nullptr, "data"};

constexpr ReplyForm resultAt(const char* key, ReplyForm form = kDataReply)
{
    form.result_key = key;
    return form;
}
constexpr ReplyForm mappedFailures(ZmqSubWorker::StatusMapper mapper, ReplyForm form = kDataReply)
{
    form.failure_mapper = mapper;
    return form;
}

// How a read reports an exception other than a parse error; `format` takes
// the exception's text and, if it wants, the reply. A read with its own
// error line may report parse errors under it too.
struct ReadFailureLog {
    const char* format = "Exception: %s\n";
    bool debug = false;
    bool covers_parse_errors = false;
};

// Reads `reply` by `form`: 0 with the result moved into `out`, or a negative
// status with `out` untouched. A parse error is logged at debug level.
int reduceReply(ZmqSubWorker& worker, const std::string& reply, const ReplyForm& form, json& out,
                const ReadFailureLog& log = {});
// Sends `request` through `info` and reduces the reply.
int fetch(ZmqSubWorker& worker, InfoFunction info, const json& request, const ReplyForm& form,
          json& out, const ReadFailureLog& log = {});

// The get pattern of one domain: `group`/`opt` out, the reply's result in.
int get(ZmqSubWorker& worker, InfoFunction info, const char* group, const char* opt, json& out,
        const ReplyForm& form = kDataReply);

// Runs `value` through `mapper`, with a code the map doesn't know as -3.
int mapStatus(ZmqSubWorker& worker, ZmqSubWorker::StatusMapper mapper, const std::string& value);

// `object.key` as an int when it is a number (a fraction truncated);
// nothing when the key is missing, holds no number, or `object` is no object.
std::optional<int> numberAt(const json& object, const char* key);
inline int numberOr(const json& object, const char* key, int fallback)
{
    return numberAt(object, key).value_or(fallback);
}

// Read-modify-write: reads the present state with `read` (a negative status is
// returned and nothing is sent), lets `build(request, state)` put the state
// and its change into the request, and sends it through `send`. A `build`
// that returns an int may refuse with a negative status; nothing is sent then.
template <class Build>
int sendWithState(ZmqSubWorker& worker, JsonRead read, ControlFunction send, json request,
                  Build build)
{
    try {
        json state;
        const int status = (worker.*read)(state);
        if (status < 0)
            return status;
        if constexpr (std::is_void_v<decltype(build(request, state))>) {
            build(request, state);
        } else {
            const int built = build(request, state);
            if (built < 0)
                return built;
        }
        return (worker.*send)(request);
    } catch (const std::exception& e) {
        LOG_ERR("Exception: %s\n", e.what());
        return kFailure;
    }
}

// The common read-modify-write: the state becomes `data`, with `key` set.
template <class Value>
int sendStateAsData(ZmqSubWorker& worker, JsonRead read, ControlFunction send, json request,
                    const char* key, const Value& value)
{
    return sendWithState(worker, read, send, std::move(request), [&](json& req, json& state) {
        req["data"] = std::move(state);
        req["data"][key] = value;
    });
}

} // namespace zmqapi
