#pragma once
// A stand-in for the application model behind the poller's typed reads. Each
// read is counted by name and answers its record's script: the status, and
// the value, which a failed read hands back too, as a half-decoded reply would.
#include "link/zmq_get_worker_model.h"

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <tuple>

namespace linktest {

template <class Record> struct Script {
    int status = -3;
    Record value{};
};

class FakeModel : public ZmqGetWorkerModel {
public:
    int getWorkMode() const override { return mode; }
    int getSystemInfo(VersionInfo& r) override { return answer("system", r); }
    int getDashboardInfo(DashBoardInfo& r) override { return answer("dashboard", r); }
    int getVideoOutInfo(VideoOutInfo& r) override { return answer("video_out", r); }
    int getAudioAllInfo(AudioAllInfo& r) override { return answer("audio", r); }
    int getPtzctrlInfo(PtzctrlInfo& r) override { return answer("ptz", r); }
    int getTallyInfo(TallyInfo& r) override { return answer("tally", r); }
    int getGskInfo(GskInfo& r) override { return answer("gsk", r); }
    int getVideoEncParams(std::vector<VideoEncInfo>& r) override { return answer("venc", r); }
    int getAiTrackingInfo(AiTrackingInfo& r) override
    {
        ai_tracking_start = r;
        return answer("ai_tracking", r);
    }
    int getEncLocalServerList(std::vector<EncRtspInfo>& rtsp, EncSrtInfo& srt) override
    {
        const int status = answer("local_server", srt);
        rtsp = script<std::vector<EncRtspInfo>>().value;
        return status;
    }
    int getDecNetStreamList(std::vector<DecNetStreamInfo>& r) override
    {
        return answer("dec_net_stream", r);
    }
    int getDecNdiList(std::vector<DecNdiInfo>& r) override { return answer("dec_ndi", r); }
    int getDecUvcList(std::vector<UvcDevInfo>& r) override { return answer("dec_uvc", r); }

    template <class Record> Script<Record>& script() { return std::get<Script<Record>>(scripts); }

    // The reads made since the last call, by name.
    std::map<std::string, int> takeReads()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return std::exchange(reads, {});
    }

    std::atomic<int> mode{0};
    AiTrackingInfo ai_tracking_start{};

private:
    template <class Record> int answer(const char* read, Record& out)
    {
        {
            std::lock_guard<std::mutex> lock(mutex);
            ++reads[read];
        }
        const Script<Record>& s = script<Record>();
        out = s.value;
        return s.status;
    }

    std::tuple<Script<VersionInfo>, Script<DashBoardInfo>, Script<VideoOutInfo>,
               Script<AudioAllInfo>, Script<PtzctrlInfo>, Script<TallyInfo>, Script<AiTrackingInfo>,
               Script<GskInfo>, Script<std::vector<VideoEncInfo>>, Script<std::vector<EncRtspInfo>>,
               Script<EncSrtInfo>, Script<std::vector<DecNetStreamInfo>>,
               Script<std::vector<DecNdiInfo>>, Script<std::vector<UvcDevInfo>>>
        scripts;
    std::mutex mutex;
    std::map<std::string, int> reads;
};

} // namespace linktest
