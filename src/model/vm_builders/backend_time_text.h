#pragma once

#include <QString>
#include <nlohmann/json.hpp>

// Formats the backend clock reply {"time": {"year", "month", "day", "hour",
// "minute", "second"}} as "YYYY-MM-DD" and "hh:mm:ss". A reply of another
// shape, or with a field missing or mistyped, leaves both texts as they were.
void buildBackendDateTimeText(const nlohmann::json& info, QString& date, QString& time);
