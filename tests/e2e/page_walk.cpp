#include "page_walk.h"

#include "screen_analysis.h"

#include <gtest/gtest.h>

#include <map>

namespace e2e {

namespace {

// Two different pages differ in far more than this share of the strip
// (cards, texts, dots, the breadcrumb; 3 % for the closest pair); live
// values on one page change less.
constexpr double kPageChangeShare = 0.015;

bool isTap(const std::string& command)
{
    return command.rfind("tap ", 0) == 0;
}

} // namespace

void expectWalk(PanelRig& rig, const std::vector<WalkStep>& steps,
                std::chrono::milliseconds patience)
{
    int page = rig.currentPage(patience);
    const QImage first = rig.screen().fresh(patience);
    ASSERT_FALSE(first.isNull()) << "the panel writes no screenshots";
    // The last picture of each page the walk has been on.
    std::map<int, QImage> seen{{page, first}};
    for (const WalkStep& step : steps) {
        SCOPED_TRACE("after '" + step.command + "' on page " + std::to_string(page));
        int now = PanelRig::kNoAnswer;
        if (isTap(step.command)) {
            // A tap clicks from the panel's event loop, after the command returned.
            rig.send(step.command);
            now = rig.waitForPage(step.page, patience);
        } else {
            now = rig.pageAfter(step.command, patience);
        }
        ASSERT_EQ(now, step.page);
        const QImage after = rig.screen().fresh(patience);
        ASSERT_FALSE(after.isNull()) << "no screenshot on page " << now;
        EXPECT_FALSE(isBlank(after)) << "page " << now << " shows nothing";
        // A page must look like none of the other pages of the walk, so that
        // a page that shows another page's widget is caught.
        for (const auto& [other, picture] : seen) {
            if (other != now) {
                EXPECT_GT(changedShare(picture, after), kPageChangeShare)
                    << "page " << now << " looks like page " << other;
            }
        }
        seen[now] = after;
        page = now;
    }
}

} // namespace e2e
