#include "link_env.h"

#include <thread>

namespace linktest {

void ReplyScript::on(const std::string& operation, const json& reply,
                     std::chrono::milliseconds delay)
{
    onRaw(operation, reply.dump(), delay);
}

void ReplyScript::onRaw(const std::string& operation, const std::string& reply,
                        std::chrono::milliseconds delay)
{
    std::lock_guard<std::mutex> lock(mutex);
    entries[operation] = Entry{reply, delay};
}

std::string ReplyScript::replyTo(const json& request) const
{
    Entry entry{R"({"rsp":"fail"})", std::chrono::milliseconds(0)};
    {
        std::lock_guard<std::mutex> lock(mutex);
        auto it = entries.find(operationOf(request));
        if (it != entries.end())
            entry = it->second;
    }
    std::this_thread::sleep_for(entry.delay);
    return entry.reply;
}

LinkEnv::LinkEnv()
    : endpoints(BackendEndpoints::local(dir.path(), testsupport::freeTcpPort())),
      web(endpoints.webserver, [this](const json& request) { return web_script.replyTo(request); }),
      media(endpoints.mediaserver,
            [this](const json& request) { return media_script.replyTo(request); })
{
}

void LinkEnv::start()
{
    worker = std::make_unique<ZmqSubWorker>(endpoints);
}

} // namespace linktest
