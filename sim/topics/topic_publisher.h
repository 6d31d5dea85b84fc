#pragma once

#include "faults/fault_table.h"
#include "state/device_state.h"
#include "transport/zmq_manager.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace sim {

// Sends the state topics through the box's proxy with the transport's
// publisher role. One thread owns the PUB socket; the other parts of the
// simulator only ask it to send.
class TopicPublisher {
public:
    TopicPublisher(DeviceState& state, FaultTable& faults, std::string pub_endpoint);
    ~TopicPublisher();
    TopicPublisher(const TopicPublisher&) = delete;
    TopicPublisher& operator=(const TopicPublisher&) = delete;

    void start();
    void stop();

    // Every active topic, as the once-a-second round does.
    void publishAll();
    // Only topics whose payload differs from the last one sent: the answer
    // to a change.
    void publishChanged();
    // One message of any text, for the malformed and wrong-shape faults.
    void publishRaw(const std::string& topic, const std::string& content);

private:
    void run();
    void sendTopics(bool all);
    void send(const std::string& topic, const std::string& content);

    DeviceState& state_;
    FaultTable& faults_;
    std::string endpoint_;
    ZMQManager manager_{"panel-sim-publisher"};
    std::thread thread_;

    std::mutex mutex_;
    std::condition_variable cv_;
    bool stopping_ = false;
    bool want_all_ = false;
    bool want_changed_ = false;
    std::deque<std::pair<std::string, std::string>> raw_;

    std::map<std::string, std::string> last_sent_; // publisher thread only
};

} // namespace sim
