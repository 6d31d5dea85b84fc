#include "server/dispatcher.h"

#include "handlers/replies.h"

#include <iostream>
#include <mutex>

namespace sim {

namespace {

std::mutex log_mutex;

bool succeeded(const json& reply)
{
    const std::string status = reply::statusOf(reply);
    return status == code::kSuccess || status == code::kRebooting || status == "success";
}

std::string describeArguments(const json& request)
{
    if (!request.is_object())
        return "";
    json arguments = request;
    for (const char* key : {"func_module", "group", "opt", "path"})
        arguments.erase(key);
    if (arguments.size() == 1 && arguments.contains("data"))
        arguments = arguments["data"];
    std::string text = arguments.empty() ? "" : arguments.dump();
    constexpr std::size_t kMaxLength = 160;
    if (text.size() > kMaxLength)
        text = text.substr(0, kMaxLength) + "...";
    return text;
}

} // namespace

Dispatcher::Dispatcher(std::string daemon, HandlerTable table, Context context)
    : daemon_(std::move(daemon)), table_(std::move(table)), context_(std::move(context))
{
}

std::string Dispatcher::handle(const std::string& request_text)
{
    const json request = json::parse(request_text, nullptr, false);
    if (request.is_discarded() || !request.is_object()) {
        const json reply = reply::refuse(code::kUnknownOperation, "request is no JSON object");
        report(json(request_text), false, reply::statusOf(reply), "");
        return reply.dump();
    }
    const bool known = table_.find(request) != nullptr;

    const std::optional<ReplyFault> fault =
        context_.faults.replyFaultFor(HandlerTable::operationName(request));
    if (fault && fault->kind == ReplyFault::Hang) {
        report(request, known, "(held)",
               "never answered, held " + std::to_string(fault->ms) + " ms");
        context_.stop.sleepFor(std::chrono::milliseconds(fault->ms));
        return reply::refuse(code::kUnknownOperation, "held too long").dump();
    }
    if (fault && fault->kind == ReplyFault::Empty) {
        report(request, known, "(empty)", "injected");
        return "";
    }
    if (fault && fault->kind == ReplyFault::Status) {
        const json reply = reply::refuse(fault->code, "injected status");
        report(request, known, fault->code, "injected");
        return reply.dump();
    }

    bool wrote = false;
    const json reply = answer(request, wrote);
    if (wrote && context_.on_write)
        context_.on_write();
    std::string note;
    if (fault && fault->kind == ReplyFault::Delay) {
        note = "delayed " + std::to_string(fault->ms) + " ms";
        context_.stop.sleepFor(std::chrono::milliseconds(fault->ms));
    }
    report(request, known, reply::statusOf(reply), note);
    return reply.dump();
}

std::vector<HandledRequest> Dispatcher::journal() const
{
    std::lock_guard<std::mutex> lock(journal_mutex_);
    return {journal_.begin(), journal_.end()};
}

json Dispatcher::answer(const json& request, bool& wrote)
{
    const Operation* operation = table_.find(request);
    if (!operation)
        return reply::refuse(code::kUnknownOperation,
                             "unknown operation: " + HandlerTable::operationName(request));
    try {
        return context_.state.with([&](json& state) {
            Request call{request, state};
            json reply = operation->handler(call);
            wrote = operation->kind == OpKind::Write && succeeded(reply);
            return reply;
        });
    } catch (const json::exception& e) {
        return reply::refuse(code::kUnknownOperation, std::string("bad request: ") + e.what());
    }
}

void Dispatcher::report(const json& request, bool known, const std::string& status,
                        const std::string& note)
{
    const std::string name =
        request.is_object() ? HandlerTable::operationName(request) : request.dump();
    {
        std::lock_guard<std::mutex> lock(journal_mutex_);
        if (journal_.size() == kJournalSize)
            journal_.pop_front();
        journal_.push_back({name, status, known});
    }
    if (context_.quiet)
        return;
    std::lock_guard<std::mutex> lock(log_mutex);
    const std::string arguments = describeArguments(request);
    std::cout << "<- " << daemon_ << " " << name << (arguments.empty() ? "" : " " + arguments)
              << " -> " << status << (note.empty() ? "" : " (" + note + ")") << std::endl;
}

} // namespace sim
