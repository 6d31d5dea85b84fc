// Object tracking and green-screen matting, addressed by path with their
// arguments at the top level of the request.
#include "handlers/field_update.h"
#include "handlers/handlers.h"
#include "handlers/replies.h"

namespace sim {

namespace {

const char* const kAiModule = "ai_api";

json& tracking(Request& r)
{
    return r.state["ai"]["tracking"];
}

json& matting(Request& r)
{
    return r.state["ai"]["matting"];
}

// The AI service names no codes of its own; refusals carry a general code.
json refuse(const std::string& reason)
{
    return reply::refuse(code::kOutOfRange, reason);
}

Handler topLevelSetter(json& (*section)(Request&), std::vector<IntField> fields)
{
    return [section, fields](Request& r) {
        return updateIntFields(r.body, section(r), fields) ? reply::aiOk()
                                                           : refuse("invalid or missing value");
    };
}

json enableMatting(Request& r)
{
    const auto it = r.body.find("im_enable");
    if (it == r.body.end() || !it->is_number_integer() || (*it != 0 && *it != 1))
        return refuse("im_enable must be 0 or 1");
    if (*it == 1 && matting(r)["user_bgfile_list"].empty())
        return refuse("no backdrop file");
    if (*it == 1 && r.state["system"]["workmode_id"] != 0)
        return refuse("matting needs encode mode");
    matting(r)["im_enable"] = *it;
    return reply::aiOk();
}

json updateTracking(Request& r)
{
    json& configure = tracking(r)["object_tracking"]["configure"];
    return updateIntFields(r.body, configure,
                           {{"class_id", 0, 9},
                            {"figure_id", 0, 9},
                            {"placement_id", 0, 9},
                            {"mode_id", 0, 9},
                            {"speed_id", 0, 9},
                            {"control_enable", 0, 1}})
               ? reply::aiOk()
               : refuse("invalid tracking setting");
}

} // namespace

void registerAiHandlers(HandlerTable& t)
{
    const OpKind W = OpKind::Write;
    t.addPath(kAiModule, "/ai/ai_tracking/tracking_enable", W,
              topLevelSetter(tracking, {{"nn_enable", 0, 1}, {"nn_type", 0, 9}}));
    t.addPath(kAiModule, "/ai/ai_tracking/select_obj", W,
              topLevelSetter(tracking, {{"track_id", -1, 1000}}));
    t.addPath(kAiModule, "/ai/ai_tracking/update_tracking_info", W, updateTracking);
    t.addPath(kAiModule, "/ai/image_matting/im_enable", W, enableMatting);
    t.addPath(kAiModule, "/ai/image_matting/update_im_info", W,
              topLevelSetter(matting, {{"bgcolor_id", 0, 9},
                                       {"bg_lf", 0, 100},
                                       {"max_bg_cf", 0, 100},
                                       {"min_bg_cf", 0, 100}}));
    t.addPath(kAiModule, "/ai/ai_tracking/get_tracking_info", OpKind::Read,
              [](Request& r) { return reply::aiData(tracking(r)); });
    t.addPath(kAiModule, "/ai/image_matting/get_matting_info", OpKind::Read,
              [](Request& r) { return reply::aiData(matting(r)); });
}

} // namespace sim
