#include "model/vm_builders/backend_time_text.h"

#include "transport/harvelin_log.h"

namespace {

QString padded(int value, int width)
{
    return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
}

} // namespace

void buildBackendDateTimeText(const nlohmann::json& info, QString& date, QString& time)
{
    if (!info.is_object()) {
        return;
    }
    const auto found = info.find("time");
    if (found == info.end() || !found->is_object()) {
        return;
    }
    try {
        const nlohmann::json& t = *found;
        const int year = t.at("year").get<int>();
        const int month = t.at("month").get<int>();
        const int day = t.at("day").get<int>();
        const int hour = t.at("hour").get<int>();
        const int minute = t.at("minute").get<int>();
        const int second = t.at("second").get<int>();
        date = QStringLiteral("%1-%2-%3").arg(padded(year, 4), padded(month, 2), padded(day, 2));
        time =
            QStringLiteral("%1:%2:%3").arg(padded(hour, 2), padded(minute, 2), padded(second, 2));
    } catch (const nlohmann::json::exception& e) {
        LOG_ERR("buildBackendDateTimeText JSON parse error: %s\n", e.what());
    }
}
