#pragma once
// An API operation with its arguments, as a value for tables of cases.
#include "model/app_manager.h"

#include <functional>

namespace apitest {

// An operation of the manager's or of its worker's.
template <class... Args, class... Values>
std::function<int(AppManager&)> call(int (AppManager::*operation)(Args...), Values... values)
{
    return [=](AppManager& a) { return (a.*operation)(values...); };
}
template <class... Args, class... Values>
std::function<int(AppManager&)> call(int (ZmqSubWorker::*operation)(Args...), Values... values)
{
    return [=](AppManager& a) { return (a.subWorker()->*operation)(values...); };
}

} // namespace apitest
