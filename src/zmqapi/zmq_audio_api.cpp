// Audio domain operations of ZmqSubWorker. The encoder settings travel as
// one object (`all` in, `audio` out); a setter reads it, changes it, sends it.
#include "zmqapi/zmq_api_patterns.h"

using zmqapi::request;

namespace {

constexpr zmqapi::InfoFunction kAudioInfo = &ZmqSubWorker::getAudioApiInfo;
constexpr zmqapi::ReplyForm kAudioReply =
    zmqapi::mappedFailures(&ZmqSubWorker::mapAudioStatusCodeToValue);

// Indices into the backend's option lists.
constexpr int kSampleRateFallback = 4;
constexpr int kSampleRateHighest = 8;
constexpr int kSampleRateSwitchFallback = 3;
constexpr int kSampleRateOnlyPcm = 6;
constexpr int kCodecWithoutRate6 = 1;
constexpr int kWideSource = 2;
constexpr int kStereoChannels = 1;
constexpr int kWideChannels = 3;

int getSelectedId(const json& object, const char* key, int fallback)
{
    auto it = object.find(key);
    if (it == object.end() || !it->is_object())
        return fallback;
    auto id = it->find("selected_id");
    if (id == it->end() || !id->is_number())
        return fallback;
    return id->get<int>();
}

void setSelectedId(json& object, const char* key, int value)
{
    object[key]["selected_id"] = value;
}

template <class Change> int sendAudioChange(ZmqSubWorker& worker, Change change)
{
    return zmqapi::sendWithState(worker, &ZmqSubWorker::getAudioConfig,
                                 &ZmqSubWorker::sendAudioApiControl, request("audio"),
                                 [&](json& req, json& state) {
                                     req["audio"] = std::move(state);
                                     change(req["audio"]);
                                 });
}

// A new source drags the dependent settings into a state the encoder accepts.
void fitToSource(json& audio, int source)
{
    if (!audio.is_object())
        return;
    const int codec = getSelectedId(audio, "codec", 0);
    int sample_rate = getSelectedId(audio, "sample_rate", kSampleRateFallback);
    const int channels_real = zmqapi::numberOr(audio, "ai_chnnum_real", 0);

    const bool rate_unsupported =
        sample_rate < 1 || (sample_rate > kSampleRateFallback && sample_rate != kSampleRateOnlyPcm)
        || (sample_rate == kSampleRateOnlyPcm && codec == kCodecWithoutRate6);
    if (rate_unsupported) {
        sample_rate = kSampleRateFallback;
        setSelectedId(audio, "sample_rate", sample_rate);
    }
    auto bitrate = audio.find("bitrate");
    if (bitrate != audio.end() && bitrate->is_object()) {
        if (sample_rate == 1)
            setSelectedId(audio, "bitrate", 4);
        if (sample_rate == 2)
            setSelectedId(audio, "bitrate", 5);
    }

    const bool wide = source == kWideSource && channels_real > 2;
    const int channels = zmqapi::numberOr(audio, "ai_chnnum_id", 0);
    if (channels == kWideChannels && wide) {
        audio["ai_chnsel_id"] = 0;
        return;
    }
    if (channels != kStereoChannels)
        audio["ai_chnnum_id"] = kStereoChannels;
    if (!wide)
        audio["ai_chnsel_id"] = 0;
}

} // namespace

int ZmqSubWorker::setAudioOutVolume(int ao_volume)
{
    return sendAudioApiControl(
        zmqapi::command("set_ao_volume", nullptr, {{"ao_volume", ao_volume}}));
}

int ZmqSubWorker::setAudioConfig(const json& audio)
{
    json req = request("audio");
    req["audio"] = audio;
    return sendAudioApiControl(req);
}

int ZmqSubWorker::setAudioEncSwitch(int audio_switch)
{
    return sendAudioChange(*this, [&](json& audio) {
        // An out-of-list rate (negative ones included) would be refused.
        if (static_cast<unsigned>(getSelectedId(audio, "sample_rate", 0)) > kSampleRateHighest) {
            setSelectedId(audio, "sample_rate", kSampleRateSwitchFallback);
        }
        audio["switch"] = audio_switch;
    });
}

int ZmqSubWorker::setAudioEncCodecId(int codec_id)
{
    return sendAudioChange(*this, [&](json& audio) { setSelectedId(audio, "codec", codec_id); });
}

int ZmqSubWorker::setAudioEncChannel(int ai_chnnum_id)
{
    return sendAudioChange(*this, [&](json& audio) { audio["ai_chnnum_id"] = ai_chnnum_id; });
}

int ZmqSubWorker::setAudioEncSampleRate(int sample_rate_id)
{
    return sendAudioChange(
        *this, [&](json& audio) { setSelectedId(audio, "sample_rate", sample_rate_id); });
}

int ZmqSubWorker::setAudioEncBitrate(int bitrate_id)
{
    return sendAudioChange(*this,
                           [&](json& audio) { setSelectedId(audio, "bitrate", bitrate_id); });
}

int ZmqSubWorker::setAudioEncVolume(int volume)
{
    return sendAudioChange(*this, [&](json& audio) { audio["volume"] = volume; });
}

int ZmqSubWorker::setAudioEncSource(int source)
{
    return sendAudioChange(*this, [&](json& audio) {
        setSelectedId(audio, "ai_type", source);
        fitToSource(audio, source);
    });
}

int ZmqSubWorker::getAudioConfig(json& out)
{
    return zmqapi::get(*this, kAudioInfo, "all", nullptr, out,
                       zmqapi::resultAt("all", kAudioReply));
}

int ZmqSubWorker::getAudioOutVolume(int& ao_volume)
{
    json data;
    const int status = zmqapi::get(*this, kAudioInfo, "get_ao_volume", nullptr, data, kAudioReply);
    if (status < 0)
        return status;
    auto it = data.find("ao_volume");
    if (it == data.end() || !it->is_number())
        return zmqapi::kFailure;
    ao_volume = it->get<int>();
    return 0;
}
