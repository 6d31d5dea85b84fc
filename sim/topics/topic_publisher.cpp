#include "topics/topic_publisher.h"

#include "topics/topic_payloads.h"

#include <vector>

namespace sim {

TopicPublisher::TopicPublisher(DeviceState& state, FaultTable& faults, std::string pub_endpoint)
    : state_(state), faults_(faults), endpoint_(std::move(pub_endpoint))
{
}

TopicPublisher::~TopicPublisher()
{
    stop();
}

void TopicPublisher::start()
{
    manager_.init_zmq_socket(zmq::socket_type::pub, endpoint_, 1);
    thread_ = std::thread([this] { run(); });
}

void TopicPublisher::stop()
{
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopping_ = true;
    }
    cv_.notify_all();
    if (thread_.joinable())
        thread_.join();
    manager_.exit_zmq_socket();
}

void TopicPublisher::publishAll()
{
    std::lock_guard<std::mutex> lock(mutex_);
    want_all_ = true;
    cv_.notify_all();
}

void TopicPublisher::publishChanged()
{
    std::lock_guard<std::mutex> lock(mutex_);
    want_changed_ = true;
    cv_.notify_all();
}

void TopicPublisher::publishRaw(const std::string& topic, const std::string& content)
{
    std::lock_guard<std::mutex> lock(mutex_);
    raw_.emplace_back(topic, content);
    cv_.notify_all();
}

void TopicPublisher::run()
{
    for (;;) {
        bool all = false;
        bool changed = false;
        std::deque<std::pair<std::string, std::string>> raw;
        {
            std::unique_lock<std::mutex> lock(mutex_);
            cv_.wait(lock,
                     [this] { return stopping_ || want_all_ || want_changed_ || !raw_.empty(); });
            if (stopping_)
                return;
            std::swap(all, want_all_);
            std::swap(changed, want_changed_);
            raw.swap(raw_);
        }
        if (all || changed)
            sendTopics(all);
        for (const auto& [topic, content] : raw)
            send(topic, content);
    }
}

void TopicPublisher::sendTopics(bool all)
{
    std::vector<std::pair<std::string, std::string>> due;
    state_.with([&](const json& state) {
        for (const TopicEntry& entry : topicEntries()) {
            if (!entry.active(state) || faults_.silenced(entry.name))
                continue;
            std::string content = entry.payload(state).dump();
            if (all || last_sent_[entry.name] != content)
                due.emplace_back(entry.name, std::move(content));
        }
        return 0;
    });
    for (const auto& [topic, content] : due) {
        send(topic, content);
        last_sent_[topic] = content;
    }
}

void TopicPublisher::send(const std::string& topic, const std::string& content)
{
    manager_.send_pub_msg(topic, content);
}

} // namespace sim
