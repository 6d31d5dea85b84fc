#include "zmqapi/zmq_api_patterns.h"

#include <exception>

namespace zmqapi {

json request(const char* group, const char* opt)
{
    json req = json::object();
    if (group)
        req["group"] = group;
    if (opt)
        req["opt"] = opt;
    return req;
}

json command(const char* group, const char* opt, json data)
{
    json req = request(group, opt);
    req["data"] = std::move(data);
    return req;
}

int mapStatus(ZmqSubWorker& worker, ZmqSubWorker::StatusMapper mapper, const std::string& value)
{
    const int status = (worker.*mapper)(value);
    return status == kUnknownCode ? kFailure : status;
}

std::optional<int> numberAt(const json& object, const char* key)
{
    auto it = object.find(key);
    if (it == object.end() || !it->is_number())
        return std::nullopt;
    return it->get<int>();
}

namespace {

bool hasWord(const json& doc, const ReplyForm& form)
{
    if (!form.word_key)
        return true;
    auto it = doc.find(form.word_key);
    return it != doc.end() && it->is_string() && it->get_ref<const std::string&>() == form.word;
}

void logFailure(const ReadFailureLog& log, const std::exception& e, const std::string& reply)
{
    if (log.debug) {
        DB_LOG(__FILE__, __FUNCTION__, __LINE__, log.format, e.what(), reply.c_str());
    } else {
        ERR_LOG(__FILE__, __FUNCTION__, __LINE__, log.format, e.what(), reply.c_str());
    }
}

} // namespace

int reduceReply(ZmqSubWorker& worker, const std::string& reply, const ReplyForm& form, json& out,
                const ReadFailureLog& log)
{
    auto failed = [&] {
        return form.failure_mapper ? mapStatus(worker, form.failure_mapper, reply) : kFailure;
    };
    if (reply.empty())
        return failed();
    try {
        json doc;
        try {
            doc = json::parse(reply);
        } catch (const json::parse_error& e) {
            if (log.covers_parse_errors)
                logFailure(log, e, reply);
            else
                LOG_DB("JSON parse exception: %s, response=%s\n", e.what(), reply.c_str());
            return failed();
        }
        if (!doc.is_object() || !hasWord(doc, form))
            return failed();
        if (!form.result_key) {
            out = std::move(doc);
            return 0;
        }
        auto result = doc.find(form.result_key);
        if (result == doc.end())
            return kFailure;
        out = std::move(*result);
        return 0;
    } catch (const std::exception& e) {
        logFailure(log, e, reply);
        return kFailure;
    }
}

int fetch(ZmqSubWorker& worker, InfoFunction info, const json& request, const ReplyForm& form,
          json& out, const ReadFailureLog& log)
{
    return reduceReply(worker, (worker.*info)(request), form, out, log);
}

int get(ZmqSubWorker& worker, InfoFunction info, const char* group, const char* opt, json& out,
        const ReplyForm& form)
{
    return fetch(worker, info, request(group, opt), form, out);
}

} // namespace zmqapi
