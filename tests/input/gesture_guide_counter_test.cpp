// How often a guide comes up: once per run and up to the backend's limit.
#include "input/gesture_guide_overlay_component.h"

#include <gtest/gtest.h>

namespace {

using nlohmann::json;

// The backend's record, with the results of its read and write calls.
struct FakeGuideRecord {
    json record;
    int readResult = 0;
    int writeResult = 0;
    int reads = 0;
    std::vector<json> writes;

    GestureGuideRecordAccess access()
    {
        return {[this](json& out) {
                    ++reads;
                    if (readResult >= 0)
                        out = record;
                    return readResult;
                },
                [this](const json& in) {
                    writes.push_back(in);
                    if (writeResult >= 0)
                        record = in;
                    return writeResult;
                }};
    }
};

class GestureGuideCounterTest : public ::testing::Test {
protected:
    void useRecord(const char* text) { backend.record = json::parse(text); }

    FakeGuideRecord backend;
    GestureGuideCounter counter{backend.access()};
};

TEST_F(GestureGuideCounterTest, ATypeAtItsLimitStaysHiddenWhileOthersShow)
{
    useRecord(R"({"force_show": 0, "shown_counts": [3, 0, 0, 0], "max_count": 3})");

    EXPECT_FALSE(counter.admit(0, true));
    EXPECT_TRUE(backend.writes.empty());
    EXPECT_TRUE(counter.admit(1, true));

    ASSERT_EQ(backend.writes.size(), 1u);
    EXPECT_EQ(backend.writes[0],
              json::parse(R"({"force_show": 0, "shown_counts": [3, 1, 0, 0], "max_count": 3})"));
    EXPECT_EQ(counter.guidesSeen(), (QSet<int>{0, 1}));
}

TEST_F(GestureGuideCounterTest, ShowsEachTypeOncePerRun)
{
    useRecord(R"({"force_show": 0, "shown_counts": [0, 0, 0, 0], "max_count": 3})");

    EXPECT_TRUE(counter.admit(0, true));
    EXPECT_FALSE(counter.admit(0, true));
    EXPECT_TRUE(counter.admit(3, true));

    EXPECT_EQ(backend.reads, 2);
    EXPECT_EQ(backend.record["shown_counts"], json::parse("[1, 0, 0, 1]"));
}

TEST_F(GestureGuideCounterTest, CountsUpToTheLimitOverManyRuns)
{
    useRecord(R"({"force_show": 0, "shown_counts": [0], "max_count": 2})");
    int shown = 0;
    for (int run = 0; run < 4; ++run) {
        GestureGuideCounter freshRun(backend.access());
        shown += freshRun.admit(0, true) ? 1 : 0;
    }
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(backend.record["shown_counts"][0], 2);
}

TEST_F(GestureGuideCounterTest, ForceShowShowsOncePerRunWithoutCounting)
{
    useRecord(R"({"force_show": 1, "shown_counts": [9, 9, 9, 9], "max_count": 3})");

    EXPECT_TRUE(counter.admit(0, true));
    EXPECT_FALSE(counter.admit(0, true));
    EXPECT_TRUE(counter.admit(1, true));

    EXPECT_TRUE(backend.writes.empty());
    EXPECT_EQ(counter.guidesSeen(), (QSet<int>{0, 1}));
}

TEST(GestureGuideCounterFailures, AFailedReadOrWriteShowsNothingAndTriesAgainNextTime)
{
    for (int FakeGuideRecord::*result :
         {&FakeGuideRecord::readResult, &FakeGuideRecord::writeResult}) {
        FakeGuideRecord backend;
        backend.record =
            json::parse(R"({"force_show": 0, "shown_counts": [0, 0, 0, 0], "max_count": 3})");
        GestureGuideCounter counter{backend.access()};
        backend.*result = -3;
        EXPECT_FALSE(counter.admit(0, true));
        EXPECT_TRUE(counter.guidesSeen().isEmpty());

        backend.*result = 0;
        EXPECT_TRUE(counter.admit(0, true));
        EXPECT_EQ(backend.record["shown_counts"][0], 1);
    }
}

TEST_F(GestureGuideCounterTest, AShortCountListIsPaddedWithZeros)
{
    useRecord(R"({"force_show": 0, "shown_counts": [2], "max_count": 3})");

    EXPECT_TRUE(counter.admit(3, true));

    EXPECT_EQ(backend.record["shown_counts"], json::parse("[2, 0, 0, 1]"));
}

TEST_F(GestureGuideCounterTest, ARecordThatIsNotAnObjectCountsAsUnreadable)
{
    useRecord("[1, 2, 3]");

    EXPECT_FALSE(counter.admit(0, true));
    EXPECT_TRUE(counter.guidesSeen().isEmpty());
    EXPECT_TRUE(backend.writes.empty());
}

TEST_F(GestureGuideCounterTest, PagesWithoutAGuideNeverReachTheBackend)
{
    useRecord(R"({"force_show": 1, "shown_counts": [], "max_count": 3})");

    for (int type : {-1, 2, 4, 5, 7}) {
        EXPECT_FALSE(counter.admit(type, true)) << "type " << type;
        EXPECT_FALSE(counter.admit(type, false)) << "type " << type;
    }
    EXPECT_EQ(backend.reads, 0);
}

TEST_F(GestureGuideCounterTest, TheUnlockGuideComesOnlyOnRequestAndIsNeverCounted)
{
    useRecord(R"({"force_show": 0, "shown_counts": [0, 0, 0, 0], "max_count": 3})");

    EXPECT_FALSE(counter.admit(6, true));
    EXPECT_TRUE(counter.admit(6, false));
    EXPECT_TRUE(counter.admit(6, false));

    EXPECT_EQ(backend.reads, 0);
    EXPECT_TRUE(counter.guidesSeen().isEmpty());
}

TEST_F(GestureGuideCounterTest, ARequestNeitherReadsNorMarks)
{
    useRecord(R"({"force_show": 0, "shown_counts": [3, 3, 3, 3], "max_count": 3})");

    EXPECT_TRUE(counter.admit(0, false));
    EXPECT_EQ(backend.reads, 0);
    EXPECT_TRUE(counter.guidesSeen().isEmpty());
}

TEST(GestureGuideCounterWithoutBackend, ShowsNoAutomaticGuide)
{
    GestureGuideCounter counter;
    EXPECT_FALSE(counter.admit(0, true));
    EXPECT_TRUE(counter.guidesSeen().isEmpty());
    EXPECT_TRUE(counter.admit(6, false));
}

} // namespace
