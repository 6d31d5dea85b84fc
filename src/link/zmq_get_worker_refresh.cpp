// The refresh functions of ZmqGetWorker: read without a lock, then store one
// group and its valid flag under the get cache mutex.
#include "link/json_values.h"
#include "link/zmq_get_cache.h"
#include "link/zmq_get_worker.h"
#include "link/zmq_sub_worker.h"

#include <string>
#include <utility>
#include <vector>

namespace {

// The RTMP server state comes as an object or as a list of one object.
int rtmpSwitch(const json& value)
{
    if (value.is_object())
        return value.value("switch", 0);
    if (value.is_array() && value.front().is_object())
        return value.front().value("switch", 0);
    return 0;
}

} // namespace

bool ZmqGetWorker::readJson(JsonRead read, json& value)
{
    if (!sub_worker)
        return false;
    if ((sub_worker->*read)(value) < 0)
        return false;
    return !jsonvalue::isEmpty(value);
}

void ZmqGetWorker::store(const std::function<void(ZmqGetCache&)>& assign)
{
    sub_worker->updateGetCache(assign);
}

bool ZmqGetWorker::refreshLcdInfo()
{
    json value;
    if (!readJson(&ZmqSubWorker::getLcdInfo, value))
        return false;
    const int lock_stat = value.value("lock_stat", 0);
    const int bright = value.value("lcd_bright", 0);
    const int sleep = value.value("LCD_sleep", 5);
    store([&](ZmqGetCache& cache) {
        cache.lcd_lock_stat = lock_stat;
        cache.lcd_bright = bright;
        cache.lcd_sleep = sleep;
        cache.lcd_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshDcOutStatus()
{
    json value;
    if (!readJson(&ZmqSubWorker::getDcOutStatus, value))
        return false;
    const int dc_switch = value.value("switch", 0);
    const int voltage = value.value("voltage", 1);
    store([&](ZmqGetCache& cache) {
        cache.dc_out_switch = dc_switch;
        cache.dc_out_voltage = voltage;
        cache.dc_out_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshUsbOtgId()
{
    json value;
    if (!readJson(&ZmqSubWorker::getUsbOtgId, value))
        return false;
    const int otg_id = value.value("usb_otg_id", 0);
    store([&](ZmqGetCache& cache) {
        cache.usb_otg_id = otg_id;
        cache.usb_otg_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshApInfo()
{
    json value;
    if (!readJson(&ZmqSubWorker::getApInfo, value))
        return false;
    const std::string ssid = value.value("ssid", std::string());
    const std::string psk = value.value("psk", std::string());
    store([&](ZmqGetCache& cache) {
        cache.ap_ssid = ssid;
        cache.ap_psk = psk;
        cache.ap_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshEncNdiInfo()
{
    json value;
    if (!readJson(&ZmqSubWorker::getEncNdiInfo, value))
        return false;
    const int ndi_switch = value.value("switch", 0);
    const int mode_id = value.value("mode_id", 0);
    const std::string machinename = value.value("machinename", std::string());
    store([&](ZmqGetCache& cache) {
        cache.enc_ndi_switch = ndi_switch;
        cache.enc_ndi_mode_id = mode_id;
        cache.enc_ndi_machinename = machinename;
        cache.enc_ndi_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshDecSrtServerInfo()
{
    json value;
    if (!readJson(&ZmqSubWorker::getDecSrtServerInfo, value))
        return false;
    const int server_switch = value.value("server_switch", 0);
    const int play_switch = value.value("play_switch", 0);
    store([&](ZmqGetCache& cache) {
        cache.dec_srt_server_switch = server_switch;
        cache.dec_srt_play_switch = play_switch;
        cache.dec_srt_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshDecRtmpServerInfo()
{
    json value;
    if (!readJson(&ZmqSubWorker::getDecRtmpServerInfo, value))
        return false;
    const int rtmp_switch = rtmpSwitch(value);
    store([&](ZmqGetCache& cache) {
        cache.dec_rtmp_switch = rtmp_switch;
        cache.dec_rtmp_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshNasInfoList()
{
    json value;
    if (!readJson(&ZmqSubWorker::getNasInfoList, value) || !value.is_array())
        return false;
    std::vector<NasMountInfo> list;
    for (const json& mount : value) {
        if (!mount.is_object())
            continue;
        NasMountInfo info;
        info.name = jsonvalue::utf8Text(mount, "name");
        info.switch_on = mount.value("switch", 0) != 0;
        info.status = mount.value("status", 0);
        list.push_back(info);
    }
    store([&](ZmqGetCache& cache) {
        cache.nas_list = std::move(list);
        cache.nas_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshDecoderInfo()
{
    json value;
    if (!readJson(&ZmqSubWorker::getDecoderInfo, value) || !value.is_object())
        return false;
    auto data_it = value.find("data");
    if (data_it == value.end() || !data_it->is_object())
        return false;
    const json& data = *data_it;
    const QString name = jsonvalue::utf8Text(data, "name");
    const QString video_format = jsonvalue::utf8Text(data, "video_format");
    const QString audio_format = jsonvalue::utf8Text(data, "audio_format");
    const int bandwidth = data.value("bandwidth", 0);
    const double framerate = data.value("framerate", 0.0);
    const int width = data.value("width", 0);
    const int height = data.value("height", 0);
    const int streamplay_status = data.value("streamplay_status", 0);
    store([&](ZmqGetCache& cache) {
        cache.dec_name = name;
        cache.dec_video_format = video_format;
        cache.dec_audio_format = audio_format;
        cache.dec_bandwidth = bandwidth;
        cache.dec_framerate = framerate;
        cache.dec_width = width;
        cache.dec_height = height;
        cache.dec_streamplay_status = streamplay_status;
        cache.decoder_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshAppConnectionStatus()
{
    if (!sub_worker)
        return false;
    int status = 0;
    if (sub_worker->getAppConnectionStatus(status) < 0)
        return false;
    store([&](ZmqGetCache& cache) {
        cache.app_connection_status = status;
        cache.app_connection_valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshPresentStorage()
{
    if (!sub_worker)
        return false;
    int storage_id = -1;
    if (sub_worker->getPresentStorage(storage_id) < 0)
        return false;
    store([&](ZmqGetCache& cache) {
        cache.present_storage_id = storage_id;
        cache.present_storage_valid = true;
    });
    return true;
}

template <class Record>
bool ZmqGetWorker::refreshRecord(int (ZmqGetWorkerModel::*read)(Record&),
                                 Record ZmqGetCache::*field, bool ZmqGetCache::*valid, Record start)
{
    if (!app_mgr || !sub_worker)
        return false;
    Record record = std::move(start);
    if ((app_mgr->*read)(record) < 0)
        return false;
    store([&](ZmqGetCache& cache) {
        cache.*field = std::move(record);
        cache.*valid = true;
    });
    return true;
}

bool ZmqGetWorker::refreshSystemInfo()
{
    return refreshRecord(&ZmqGetWorkerModel::getSystemInfo, &ZmqGetCache::version,
                         &ZmqGetCache::version_valid);
}

bool ZmqGetWorker::refreshDashboardInfo()
{
    return refreshRecord(&ZmqGetWorkerModel::getDashboardInfo, &ZmqGetCache::dashboard,
                         &ZmqGetCache::dashboard_valid);
}

bool ZmqGetWorker::refreshVideoOutInfo()
{
    return refreshRecord(&ZmqGetWorkerModel::getVideoOutInfo, &ZmqGetCache::video_out,
                         &ZmqGetCache::video_out_valid);
}

bool ZmqGetWorker::refreshAudioAllInfo()
{
    return refreshRecord(&ZmqGetWorkerModel::getAudioAllInfo, &ZmqGetCache::audio,
                         &ZmqGetCache::audio_valid);
}

bool ZmqGetWorker::refreshPtzctrlInfo()
{
    return refreshRecord(&ZmqGetWorkerModel::getPtzctrlInfo, &ZmqGetCache::ptz,
                         &ZmqGetCache::ptz_valid);
}

bool ZmqGetWorker::refreshTallyInfo()
{
    return refreshRecord(&ZmqGetWorkerModel::getTallyInfo, &ZmqGetCache::tally,
                         &ZmqGetCache::tally_valid);
}

bool ZmqGetWorker::refreshAiTrackingInfo()
{
    return refreshRecord(&ZmqGetWorkerModel::getAiTrackingInfo, &ZmqGetCache::ai_tracking,
                         &ZmqGetCache::ai_tracking_valid, ZmqGetCache::defaultAiTracking());
}

bool ZmqGetWorker::refreshGskInfo()
{
    return refreshRecord(&ZmqGetWorkerModel::getGskInfo, &ZmqGetCache::gsk,
                         &ZmqGetCache::gsk_valid);
}

bool ZmqGetWorker::refreshVideoEncParams()
{
    return refreshRecord(&ZmqGetWorkerModel::getVideoEncParams, &ZmqGetCache::venc_list,
                         &ZmqGetCache::venc_valid);
}

bool ZmqGetWorker::refreshDecNetStreamList()
{
    return refreshRecord(&ZmqGetWorkerModel::getDecNetStreamList, &ZmqGetCache::dec_net_stream_list,
                         &ZmqGetCache::dec_net_stream_valid);
}

bool ZmqGetWorker::refreshDecNdiList()
{
    return refreshRecord(&ZmqGetWorkerModel::getDecNdiList, &ZmqGetCache::dec_ndi_list,
                         &ZmqGetCache::dec_ndi_valid);
}

bool ZmqGetWorker::refreshDecUvcList()
{
    return refreshRecord(&ZmqGetWorkerModel::getDecUvcList, &ZmqGetCache::dec_uvc_list,
                         &ZmqGetCache::dec_uvc_valid);
}

// The one group read as a list and a record together.
bool ZmqGetWorker::refreshEncLocalServerList()
{
    if (!app_mgr || !sub_worker)
        return false;
    std::vector<EncRtspInfo> rtsp_list;
    EncSrtInfo srt{};
    if (app_mgr->getEncLocalServerList(rtsp_list, srt) < 0)
        return false;
    store([&](ZmqGetCache& cache) {
        cache.enc_rtsp_list = std::move(rtsp_list);
        cache.enc_srt = srt;
        cache.local_server_valid = true;
    });
    return true;
}
