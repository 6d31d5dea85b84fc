#pragma once
// A stand-in for the application model that the poller reads its typed
// groups through: each read answers with a scripted status and record and is
// counted, so that a test sees what a tick asked for and what it stored.
#include "link/zmq_get_worker_model.h"

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace linktest {

// One typed read: the status it returns and the record it fills on success.
// A failing read scribbles on the record, as a half-decoded reply would, so
// that a test can see that nothing of it was stored.
template <class Record> struct ScriptedRead {
    int status = -3;
    Record value{};
    Record garbage{};
};

class FakeModel : public ZmqGetWorkerModel {
public:
    int getWorkMode() const override { return mode.load(); }

    int getSystemInfo(VersionInfo& info) override { return answer("system", system, info); }
    int getDashboardInfo(DashBoardInfo& info) override
    {
        return answer("dashboard", dashboard, info);
    }
    int getVideoOutInfo(VideoOutInfo& info) override
    {
        return answer("video_out", video_out, info);
    }
    int getAudioAllInfo(AudioAllInfo& info) override { return answer("audio", audio, info); }
    int getPtzctrlInfo(PtzctrlInfo& info) override { return answer("ptz", ptz, info); }
    int getTallyInfo(TallyInfo& info) override { return answer("tally", tally, info); }
    int getAiTrackingInfo(AiTrackingInfo& info) override
    {
        // The start value the poller hands in is what a partial reply keeps.
        ai_tracking_start = info;
        return answer("ai_tracking", ai_tracking, info);
    }
    int getGskInfo(GskInfo& info) override { return answer("gsk", gsk, info); }
    int getVideoEncParams(std::vector<VideoEncInfo>& list) override
    {
        return answer("venc", venc, list);
    }
    int getEncLocalServerList(std::vector<EncRtspInfo>& rtsp_list, EncSrtInfo& srt_info) override
    {
        answer("local_server", local_rtsp, rtsp_list);
        return answer("", local_srt, srt_info);
    }
    int getDecNetStreamList(std::vector<DecNetStreamInfo>& list) override
    {
        return answer("dec_net_stream", dec_net_stream, list);
    }
    int getDecNdiList(std::vector<DecNdiInfo>& list) override
    {
        return answer("dec_ndi", dec_ndi, list);
    }
    int getDecUvcList(std::vector<UvcDevInfo>& list) override
    {
        return answer("dec_uvc", dec_uvc, list);
    }

    // How often each read was made since the last clear.
    int countOf(const std::string& read) const
    {
        std::lock_guard<std::mutex> lock(mutex);
        auto it = calls.find(read);
        return it == calls.end() ? 0 : it->second;
    }
    std::map<std::string, int> callCounts() const
    {
        std::lock_guard<std::mutex> lock(mutex);
        return calls;
    }
    void clearCounts()
    {
        std::lock_guard<std::mutex> lock(mutex);
        calls.clear();
    }

    std::atomic<int> mode{0};
    // Scripts; set them before the poller runs (they are not guarded).
    ScriptedRead<VersionInfo> system;
    ScriptedRead<DashBoardInfo> dashboard;
    ScriptedRead<VideoOutInfo> video_out;
    ScriptedRead<AudioAllInfo> audio;
    ScriptedRead<PtzctrlInfo> ptz;
    ScriptedRead<TallyInfo> tally;
    ScriptedRead<AiTrackingInfo> ai_tracking;
    AiTrackingInfo ai_tracking_start{};
    ScriptedRead<GskInfo> gsk;
    ScriptedRead<std::vector<VideoEncInfo>> venc;
    ScriptedRead<std::vector<EncRtspInfo>> local_rtsp;
    ScriptedRead<EncSrtInfo> local_srt;
    ScriptedRead<std::vector<DecNetStreamInfo>> dec_net_stream;
    ScriptedRead<std::vector<DecNdiInfo>> dec_ndi;
    ScriptedRead<std::vector<UvcDevInfo>> dec_uvc;

private:
    template <class Record>
    int answer(const std::string& read, const ScriptedRead<Record>& script, Record& out)
    {
        if (!read.empty()) {
            std::lock_guard<std::mutex> lock(mutex);
            ++calls[read];
        }
        out = script.status < 0 ? script.garbage : script.value;
        return script.status;
    }

    mutable std::mutex mutex;
    std::map<std::string, int> calls;
};

} // namespace linktest
