#include "transport/zmq_endpoints.h"

#include <cstdlib>

namespace ZMQ_Path {
const std::string WebServer_router_dealer = "ipc:///tmp/webserver.sock";
const std::string WebServer_router_dealer_inproc = "inproc://backend_webserver";
const std::string MediaServer_router_dealer = "ipc:///tmp/mediaserver.sock";
const std::string MediaServer_router_dealer_inproc = "inproc://backend_mediaserver";
const std::string MiscServer_router_dealer = "ipc:///tmp/miscserver.sock";
const std::string MiscServer_router_dealer_inproc = "inproc://backend_miscserver";
const std::string MediaPlayer_router_dealer = "ipc:///tmp/mediaplayer.sock";
const std::string MediaPlayer_router_dealer_inproc = "inproc://backend_mediaplayer";
const std::string BT_router_dealer = "ipc:///tmp/btserver.sock";
const std::string BT_router_dealer_inproc = "inproc://backend_btserver";
const std::string ControlServer_router_dealer = "ipc:///tmp/controlserver.sock";
const std::string ControlServer_router_dealer_inproc = "inproc://backend_controlserver";
const std::string AdpchipsServer_router_dealer = "ipc:///tmp/adpchipsserver.sock";
const std::string AdpchipsServer_router_dealer_inproc = "inproc://backend_adpchipsserver";
const std::string ZMQ_Proxy_Sub = "tcp://0.0.0.0:5000";
const std::string ZMQ_Proxy_Pub = "tcp://0.0.0.0:5001";
} // namespace ZMQ_Path

namespace ZMQ_Topic {
const std::string TOPIC_CONFIG_JSON = "topic_config_json";
const std::string TOPIC_NETWORK_INFO = "topic_network_info";
const std::string TOPIC_STORAGE_INFO = "topic_storage_info";
const std::string TOPIC_MISC_CPU_MEMORY_INFO = "topic_cpu_memory_info";
const std::string TOPIC_VIDEO_INPUT_INFO = "topic_video_input_info";
const std::string TOPIC_NET_STREAM_INFO = "topic_net_stream_info";
const std::string TOPIC_RECORD_STATE_INFO = "topic_record_state_info";
const std::string TOPIC_OSD_STATE_INFO = "topic_osd_state_info";
const std::string TOPIC_BT_STATE_INFO = "topic_bt_state_info";
const std::string TOPIC_CONTROL_STATE_INFO = "topic_control_state_info";
const std::string TOPIC_VENC_STATE_INFO = "topic_venc_state_info";
const std::string TOPIC_NDI_STATE_INFO = "topic_ndi_state_info";
const std::string TOPIC_PLAY_STATE_INFO = "topic_play_state_info";
const std::string TOPIC_LOG_INFO = "topic_log_info";
const std::string TOPIC_SYSTEM_STATE_INFO = "topic_system_state_info";
const std::string TOPIC_UPGRADE_PROGRESS_INFO = "topic_upgrade_progress_info";
} // namespace ZMQ_Topic

BackendEndpoints BackendEndpoints::defaults()
{
    return {ZMQ_Path::WebServer_router_dealer, ZMQ_Path::MediaServer_router_dealer,
            ZMQ_Path::ZMQ_Proxy_Sub, ZMQ_Path::ZMQ_Proxy_Pub};
}

BackendEndpoints BackendEndpoints::local(const std::string& ipc_dir, int topic_port)
{
    return {"ipc://" + ipc_dir + "/webserver.sock", "ipc://" + ipc_dir + "/mediaserver.sock",
            "tcp://127.0.0.1:" + std::to_string(topic_port),
            "tcp://127.0.0.1:" + std::to_string(topic_port + 1)};
}

BackendEndpoints BackendEndpoints::fromEnvironment()
{
    BackendEndpoints endpoints = defaults();
    if (const char* dir = std::getenv("PANEL_BACKEND_IPC_DIR"); dir && *dir) {
        const BackendEndpoints moved = local(dir, 0);
        endpoints.webserver = moved.webserver;
        endpoints.mediaserver = moved.mediaserver;
    }
    if (const char* port = std::getenv("PANEL_BACKEND_TOPIC_PORT"); port && *port) {
        const int value = std::atoi(port);
        if (value > 0 && value < 65535) {
            const BackendEndpoints moved = local("", value);
            endpoints.topics_sub = moved.topics_sub;
            endpoints.topics_pub = moved.topics_pub;
        }
    }
    return endpoints;
}

bool BackendEndpoints::operator==(const BackendEndpoints& other) const
{
    return webserver == other.webserver && mediaserver == other.mediaserver
           && topics_sub == other.topics_sub && topics_pub == other.topics_pub;
}
