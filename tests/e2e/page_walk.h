#pragma once
// A walk over the page graph: commands sent one after the other, each with
// the page the panel must be on afterwards.
#include "panel_rig.h"

#include <string>
#include <vector>

namespace e2e {

struct WalkStep {
    std::string command; // a test pipe line: "swipe left", "tap 120 95", "goto 5"...
    int page;            // where the panel must be after it
};

// Runs the steps in order. After each one the panel must report the
// expected page, its screen must not be blank, and the picture must differ
// from the last picture of every other page of the walk. Stops at the first wrong page with a fatal
// failure (wrap the call in ASSERT_NO_FATAL_FAILURE). `patience` bounds the
// wait for each answer and picture.
void expectWalk(PanelRig& rig, const std::vector<WalkStep>& steps,
                std::chrono::milliseconds patience = std::chrono::milliseconds(5000));

} // namespace e2e
