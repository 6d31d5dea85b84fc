#pragma once
// The record button of the record page: stop a running recording, or judge
// the task and its disk before starting one, so that the user learns why a
// recording can't start instead of seeing a bare failure.
#include "control/control_action.h"
#include "model/view_models/shortcut_view_models.h"
#include "zmqapi/api_records.h"

#include <functional>
#include <vector>

// Disk status values of the storage topic; 1 is the only one to record on.
inline constexpr int kDiskReady = 1;

// The failure card for a disk that isn't ready.
ControlAction diskStatusCardAction(int diskStatus);

// `tasks` is the backend's task list, or null when it couldn't be read;
// `diskStatus` answers the status of a storage id.
ControlAction recordClickedAction(const EncoderShortcutPageVM& vm,
                                  const std::vector<RecordTaskInfo>* tasks,
                                  const std::function<int(int)>& diskStatus);
