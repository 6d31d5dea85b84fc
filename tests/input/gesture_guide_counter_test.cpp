// How often a guide comes up: once per run, and up to the limit kept in the
// backend's record.
#include "input/gesture_guide_overlay_component.h"

#include <gtest/gtest.h>

namespace {

using nlohmann::json;

// The backend's record, with the results its read and write calls give.
struct FakeRecord {
    json record;
    int readResult = 0;
    int writeResult = 0;
    int reads = 0;
    int writes = 0;

    GestureGuideRecordAccess access()
    {
        return {[this](json& out) {
                    ++reads;
                    if (readResult >= 0)
                        out = record;
                    return readResult;
                },
                [this](const json& in) {
                    ++writes;
                    if (writeResult >= 0)
                        record = in;
                    return writeResult;
                }};
    }
};

QSet<int> typesIn(const QString& text)
{
    QSet<int> types;
    for (const QString& type : text.split(' ', Qt::SkipEmptyParts))
        types.insert(type.toInt());
    return types;
}

struct CounterCase {
    const char* name;
    const char* record;
    // The guide types offered in turn, each with "+" when it is to show and
    // "-" when not; "?" marks a request (the unlock hint after swipes on a
    // locked LCD) rather than an automatic offer.
    const char* offers;
    const char* seen;
    int reads;
    int writes;
    const char* recordAfter; // null: as before
};

TEST(GestureGuideCounter, ShowsEachGuideOncePerRunAndUpToTheLimit)
{
    const CounterCase cases[] = {
        {"a type at its limit stays hidden while others show",
         R"({"force_show":0,"shown_counts":[3,0,0,0],"max_count":3})", "0- 1+", "0 1", 2, 1,
         R"({"force_show":0,"shown_counts":[3,1,0,0],"max_count":3})"},
        {"once per run, padding a short count list",
         R"({"force_show":0,"shown_counts":[2],"max_count":3})", "0+ 0- 3+", "0 3", 2, 2,
         R"({"force_show":0,"shown_counts":[3,0,0,1],"max_count":3})"},
        {"force show shows once per run without counting",
         R"({"force_show":1,"shown_counts":[9,9,9,9],"max_count":3})", "0+ 0- 1+", "0 1", 2, 0,
         nullptr},
        {"a record that is no object is unreadable", "[1,2,3]", "0-", "", 1, 0, nullptr},
        {"requests, the unlock guide and pages without a guide never reach the backend",
         R"({"force_show":0,"shown_counts":[3,3,3,3],"max_count":3})",
         "6- ?6+ ?6+ ?0+ -1- 2- ?4- 5- ?7-", "", 0, 0, nullptr}};
    for (const CounterCase& c : cases) {
        SCOPED_TRACE(c.name);
        FakeRecord backend;
        backend.record = json::parse(c.record);
        GestureGuideCounter counter(backend.access());
        for (QString offer : QString(c.offers).split(' ')) {
            const bool shown = offer.endsWith('+');
            const bool request = offer.startsWith('?');
            offer.remove('?').chop(1);
            EXPECT_EQ(counter.admit(offer.toInt(), !request), shown) << offer.toStdString();
        }
        EXPECT_EQ(counter.guidesSeen(), typesIn(c.seen));
        EXPECT_EQ(backend.reads, c.reads);
        EXPECT_EQ(backend.writes, c.writes);
        EXPECT_EQ(backend.record, json::parse(c.recordAfter ? c.recordAfter : c.record));
    }
}

TEST(GestureGuideCounter, AFailedReadOrWriteShowsNothingAndTriesAgain)
{
    for (int FakeRecord::*result : {&FakeRecord::readResult, &FakeRecord::writeResult}) {
        FakeRecord backend;
        backend.record = json::parse(R"({"force_show":0,"shown_counts":[0],"max_count":3})");
        GestureGuideCounter counter(backend.access());
        backend.*result = -3;
        EXPECT_FALSE(counter.admit(0, true));
        EXPECT_TRUE(counter.guidesSeen().isEmpty());
        backend.*result = 0;
        EXPECT_TRUE(counter.admit(0, true));
        EXPECT_EQ(backend.record["shown_counts"][0], 1);
    }

    GestureGuideCounter withoutBackend;
    EXPECT_FALSE(withoutBackend.admit(0, true));
    EXPECT_TRUE(withoutBackend.admit(6, false));
}

} // namespace
