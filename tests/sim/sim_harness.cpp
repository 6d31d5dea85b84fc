#include "sim_harness.h"

#include "support/test_support.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>

namespace simtest {

Client::Client(const std::string& endpoint)
{
    manager_.init_zmq_router_dealer_client(endpoint, 1);
}

int Client::send(const json& request, std::string& reply, int timeout_ms)
{
    return manager_.send_zmq_router_dealer_client_msg(request.dump(), reply, timeout_ms);
}

json Client::ask(const json& request, int timeout_ms)
{
    std::string reply;
    if (send(request, reply, timeout_ms) < 0)
        return nullptr;
    return json::parse(reply, nullptr, false);
}

ControlClient::ControlClient(const std::string& path)
{
    fd_ = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    if (::connect(fd_, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0)
        throw std::runtime_error("cannot connect to control socket " + path);
    timeval timeout{5, 0};
    ::setsockopt(fd_, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof(timeout));
}

ControlClient::~ControlClient()
{
    ::close(fd_);
}

std::string ControlClient::send(const std::string& line)
{
    const std::string out = line + "\n";
    if (::write(fd_, out.data(), out.size()) != static_cast<ssize_t>(out.size()))
        return "<write failed>";
    std::string reply;
    char c = 0;
    while (::read(fd_, &c, 1) == 1 && c != '\n')
        reply += c;
    return reply;
}

TopicListener::TopicListener(const std::string& endpoint)
{
    manager_.init_zmq_socket(zmq::socket_type::sub, endpoint, 1);
    manager_.set_subscribe_topic("");
    thread_ = std::thread([this] {
        while (running_) {
            std::string topic;
            std::string content;
            if (manager_.recv_sub_msg(topic, content) == 0) {
                std::lock_guard<std::mutex> lock(mutex_);
                received_.emplace_back(topic, content);
            }
        }
    });
}

TopicListener::~TopicListener()
{
    running_ = false;
    thread_.join();
}

bool TopicListener::waitFor(const std::string& topic,
                            const std::function<bool(const std::string&)>& accept,
                            std::chrono::milliseconds deadline)
{
    std::size_t seen = 0;
    return testsupport::waitUntil(
        [&] {
            std::lock_guard<std::mutex> lock(mutex_);
            for (; seen < received_.size(); ++seen)
                if (received_[seen].first == topic && accept(received_[seen].second))
                    return true;
            return false;
        },
        deadline);
}

bool TopicListener::waitForJson(const std::string& topic,
                                const std::function<bool(const json&)>& accept,
                                std::chrono::milliseconds deadline)
{
    return waitFor(
        topic,
        [&](const std::string& content) {
            const json payload = json::parse(content, nullptr, false);
            return !payload.is_discarded() && accept(payload);
        },
        deadline);
}

int TopicListener::count(const std::string& topic)
{
    std::lock_guard<std::mutex> lock(mutex_);
    int n = 0;
    for (const auto& message : received_)
        n += message.first == topic ? 1 : 0;
    return n;
}

void TopicListener::forget()
{
    std::lock_guard<std::mutex> lock(mutex_);
    received_.clear();
}

json request(const std::string& module, const std::string& group, const std::string& opt,
             const json& data)
{
    json body = {{"func_module", module}};
    if (!group.empty())
        body["group"] = group;
    if (!opt.empty())
        body["opt"] = opt;
    if (!data.is_null())
        body["data"] = data;
    return body;
}

std::string statusOf(const json& reply)
{
    if (!reply.is_object() || !reply.contains("status"))
        return "<none>";
    return reply["status"].is_string() ? reply["status"].get<std::string>()
                                       : reply["status"].dump();
}

} // namespace simtest
