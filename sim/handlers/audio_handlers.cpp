// The audio encoder, its source, and the output volume.
#include "handlers/field_update.h"
#include "handlers/handlers.h"
#include "handlers/replies.h"

namespace sim {

namespace {

const char* const kAudioModule = "audio_api";

bool validSelection(const json& audio, const char* key, int high)
{
    if (!audio.contains(key))
        return true;
    const json& value = audio[key];
    return value.is_object() && value.contains("selected_id")
           && value["selected_id"].is_number_integer() && value["selected_id"] >= 0
           && value["selected_id"] <= high;
}

json setAudio(Request& r)
{
    const auto audio = r.body.find("audio");
    if (audio == r.body.end() || !audio->is_object())
        return reply::refuse(code::kOutOfRange, "audio object missing");
    for (const auto& [key, high] : {std::pair{"ai_type", 3}, std::pair{"codec", 2},
                                    std::pair{"bitrate", 9}, std::pair{"sample_rate", 8}})
        if (!validSelection(*audio, key, high))
            return reply::refuse(code::kOutOfRange, std::string("invalid ") + key);
    json scratch = json::object();
    for (const IntField& field :
         {IntField{"switch", 0, 1}, IntField{"volume", 0, 100}, IntField{"ao_volume", 0, 100}})
        if (audio->contains(field.key) && !updateIntFields(*audio, scratch, {field}))
            return reply::refuse(code::kOutOfRange, std::string("invalid ") + field.key);
    r.state["audio"]["all"].update(*audio);
    return reply::ok();
}

} // namespace

void registerAudioHandlers(HandlerTable& t)
{
    t.add(kAudioModule, "audio", "", OpKind::Write, setAudio);
    t.add(kAudioModule, "set_ao_volume", "", OpKind::Write,
          intSetter("/audio/all", {{"ao_volume", 0, 100}}, code::kOutOfRange));
    t.add(kAudioModule, "all", "", OpKind::Read,
          [](Request& r) { return reply::okTop("all", r.state["audio"]["all"]); });
    t.add(kAudioModule, "get_ao_volume", "", OpKind::Read, [](Request& r) {
        return reply::okData({{"ao_volume", r.state["audio"]["all"]["ao_volume"]}});
    });
}

} // namespace sim
