// Requests over real sockets to a scripted web server daemon, the reduction
// of a reply to one status value, and a bad configuration read at start.
#include "link_env.h"

#include <gtest/gtest.h>

namespace linktest {
namespace {

const json kOk = {{"status", "00000"}};

class RequestsTest : public ::testing::Test {
protected:
    void SetUp() override { env.start(); }
    ZmqSubWorker& worker() { return *env.worker; }
    LinkEnv env;
};

TEST_F(RequestsTest, InvalidUtf8IsRefusedWithoutSendingAndTheNextRequestGoesOut)
{
    env.web.clearRequests();
    EXPECT_EQ(worker().sendZmqRequest({{"opt", "bad"}, {"data", std::string("\xff\xfe")}}), "");
    EXPECT_TRUE(env.web.requests().empty());
    env.web.reply("next", kOk);
    EXPECT_EQ(worker().sendZmqRequest({{"opt", "next"}}), kOk.dump());
}

TEST(RequestsAtStart, OsdLayoutOfTheWrongShapeDoesNotStopTheStart)
{
    LinkEnv env;
    env.web.reply("get_osddom",
                  {{"data", {{"osd_layout", {{"id", 3}, {"name", "Logo"}, {"switch", 1}}}}}});
    env.start();
    EXPECT_TRUE(env.worker->isRunning());
    EXPECT_FALSE(env.worker->getSubCache().osd_ready);
    EXPECT_TRUE(env.worker->getSubCache().osd_items.empty());
}

// A worker with a domain map of its own, to watch the hand-over from the
// general codes.
class ProbeWorker : public ZmqSubWorker {
public:
    using ZmqSubWorker::ZmqSubWorker;
    int mapProbe(const std::string& code)
    {
        return code == "0" ? 42 : code == "70001" ? -701 : -9999;
    }
};

TEST(ReplyReduction, CodeFirstThenWordsAndOnlyUnknownCodesGoToTheDomainMap)
{
    LinkEnv env;
    ProbeWorker worker(env.endpoints);
    const auto probe = static_cast<ZmqSubWorker::StatusMapper>(&ProbeWorker::mapProbe);
    struct Case {
        const char* reply;
        int status;
        bool with_domain_map = false;
    };
    const Case cases[] = {
        // Five and six zeros are distinct successes; numbers read like their text.
        {R"({"status":"00000"})", 0},
        {R"({"status":"000000"})", 1},
        {R"({"status":"00010"})", 2},
        {R"({"status":9})", -1},
        {R"({"code":13})", 3},
        {R"({"code":"0013"})", 3},
        {R"({"status":"2"})", -101},
        {R"({"status":"4294967297"})", -3},
        // `status` shadows `code`, even empty; then only the words count.
        {R"({"status":"9","code":"13"})", -1},
        {R"({"status":"","code":"13"})", -3},
        {R"({"status":"","rsp":"succeed"})", 0},
        {R"({"status":"9","rsp":"succeed"})", -1},
        // Codes unknown to the general map.
        {R"({"status":0})", -3},
        {R"({"status":0})", 42, true},
        {R"({"status":"70001"})", -701, true},
        {R"({"status":"2"})", -101, true},
        {R"({"status":"70002"})", -3, true},
        // Words without a code.
        {R"({"rsp":"succeed"})", 0},
        {R"({"rsp":"succeed!!!"})", 0},
        {R"({"rsp":"fail","msg":"success"})", 0},
        {R"({"rsp":"fail"})", -3},
        {R"({"rsp":"Succeed"})", -3},
        {R"({"rsp":1,"msg":["success"]})", -3},
        // Anything but an object.
        {"", -3},
        {R"([{"status":"00000"}])", -3},
        {R"("succeed")", -3},
        {R"({"error":"empty reply"})", -3},
    };
    for (const Case& c : cases)
        EXPECT_EQ(worker.processApiResponse(c.reply, c.with_domain_map ? probe : nullptr), c.status)
            << c.reply << (c.with_domain_map ? " with the domain map" : "");
}

} // namespace
} // namespace linktest
