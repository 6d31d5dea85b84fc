#pragma once

#include <string>

// The box's fixed endpoints. Request endpoints are ipc sockets bound by each
// daemon's ROUTER; the inproc names are the DEALER side of that daemon's proxy.
namespace ZMQ_Path {
extern const std::string WebServer_router_dealer;
extern const std::string WebServer_router_dealer_inproc;
extern const std::string MediaServer_router_dealer;
extern const std::string MediaServer_router_dealer_inproc;
extern const std::string MiscServer_router_dealer;
extern const std::string MiscServer_router_dealer_inproc;
extern const std::string MediaPlayer_router_dealer;
extern const std::string MediaPlayer_router_dealer_inproc;
extern const std::string BT_router_dealer;
extern const std::string BT_router_dealer_inproc;
extern const std::string ControlServer_router_dealer;
extern const std::string ControlServer_router_dealer_inproc;
extern const std::string AdpchipsServer_router_dealer;
extern const std::string AdpchipsServer_router_dealer_inproc;
extern const std::string ZMQ_Proxy_Sub;
extern const std::string ZMQ_Proxy_Pub;
} // namespace ZMQ_Path

namespace ZMQ_Topic {
extern const std::string TOPIC_CONFIG_JSON;
extern const std::string TOPIC_NETWORK_INFO;
extern const std::string TOPIC_STORAGE_INFO;
extern const std::string TOPIC_MISC_CPU_MEMORY_INFO;
extern const std::string TOPIC_VIDEO_INPUT_INFO;
extern const std::string TOPIC_NET_STREAM_INFO;
extern const std::string TOPIC_RECORD_STATE_INFO;
extern const std::string TOPIC_OSD_STATE_INFO;
extern const std::string TOPIC_BT_STATE_INFO;
extern const std::string TOPIC_CONTROL_STATE_INFO;
extern const std::string TOPIC_VENC_STATE_INFO;
extern const std::string TOPIC_NDI_STATE_INFO;
extern const std::string TOPIC_PLAY_STATE_INFO;
extern const std::string TOPIC_LOG_INFO;
extern const std::string TOPIC_SYSTEM_STATE_INFO;
extern const std::string TOPIC_UPGRADE_PROGRESS_INFO;
} // namespace ZMQ_Topic

// Where the panel (and the simulator) find the daemons. On the device these are
// the ZMQ_Path values. Off the device two opt-in environment variables move
// them, so that tests and demos never collide with each other or with a real
// backend; with neither set nothing changes:
//   PANEL_BACKEND_IPC_DIR     folder holding webserver.sock and mediaserver.sock
//   PANEL_BACKEND_TOPIC_PORT  the proxy's subscriber port; its publisher port is the next one
struct BackendEndpoints {
    std::string webserver;   // request endpoint of the web server daemon
    std::string mediaserver; // request endpoint of the media server daemon
    std::string topics_sub;  // where subscribers connect (the proxy's XPUB)
    std::string topics_pub;  // where publishers connect (the proxy's XSUB)

    static BackendEndpoints defaults();
    static BackendEndpoints fromEnvironment();
    // Endpoints inside `ipc_dir` and on loopback `topic_port` / `topic_port + 1`.
    static BackendEndpoints local(const std::string& ipc_dir, int topic_port);

    bool operator==(const BackendEndpoints& other) const;
};
