// Reduction of a daemon's reply to one status value.
#include "link_env.h"

#include <gtest/gtest.h>

namespace linktest {
namespace {

// A worker with a domain map of its own, so that the hand-over from the
// general codes to a domain map can be watched.
class ProbeWorker : public ZmqSubWorker {
public:
    using ZmqSubWorker::ZmqSubWorker;

    int mapProbe(const std::string& code)
    {
        last_mapped = code;
        if (code == "0")
            return 42;
        if (code == "70001")
            return -701;
        return -9999;
    }

    std::string last_mapped;
};

const ZmqSubWorker::StatusMapper kProbe =
    static_cast<ZmqSubWorker::StatusMapper>(&ProbeWorker::mapProbe);

class ResponseReductionTest : public ::testing::Test {
protected:
    void SetUp() override { worker = std::make_unique<ProbeWorker>(env.endpoints); }

    int reduce(const std::string& reply, ZmqSubWorker::StatusMapper mapper = nullptr)
    {
        return worker->processApiResponse(reply, mapper);
    }

    LinkEnv env;
    std::unique_ptr<ProbeWorker> worker;
};

TEST_F(ResponseReductionTest, FiveAndSixZerosAreDistinctSuccesses)
{
    EXPECT_EQ(reduce(R"({"status":"00000"})"), 0);
    EXPECT_EQ(reduce(R"({"status":"000000"})"), 1);
    EXPECT_EQ(reduce(R"({"status":"00010"})"), 2);
}

TEST_F(ResponseReductionTest, NumericStatusReadsLikeItsText)
{
    EXPECT_EQ(reduce(R"({"status":10})"), 2);
    EXPECT_EQ(reduce(R"({"status":"10"})"), 2);
    EXPECT_EQ(reduce(R"({"status":9})"), -1);
    EXPECT_EQ(reduce(R"({"code":"13"})"), 3);
    EXPECT_EQ(reduce(R"({"code":13})"), 3);
}

TEST_F(ResponseReductionTest, StatusWinsOverCode)
{
    EXPECT_EQ(reduce(R"({"status":"9","code":"13"})"), -1);
    // An empty status still shadows the code, and then only the words count.
    EXPECT_EQ(reduce(R"({"status":"","code":"13"})"), -3);
}

TEST_F(ResponseReductionTest, ZeroIsNoGeneralCodeAndGoesToTheDomainMap)
{
    EXPECT_EQ(reduce(R"({"status":0})"), -3);
    EXPECT_EQ(reduce(R"({"status":0})", kProbe), 42);
    EXPECT_EQ(worker->last_mapped, "0");
}

TEST_F(ResponseReductionTest, DomainMapSeesOnlyCodesUnknownToTheGeneralMap)
{
    EXPECT_EQ(reduce(R"({"status":"70001"})", kProbe), -701);
    worker->last_mapped.clear();
    EXPECT_EQ(reduce(R"({"status":"2"})", kProbe), -101);
    EXPECT_TRUE(worker->last_mapped.empty());
}

TEST_F(ResponseReductionTest, CodeUnknownEverywhereIsTheCommonFailure)
{
    EXPECT_EQ(reduce(R"({"status":"70002"})", kProbe), -3);
    EXPECT_EQ(reduce(R"({"status":"70002"})"), -3);
}

TEST_F(ResponseReductionTest, SuccessWordsCountOnlyWithoutACode)
{
    EXPECT_EQ(reduce(R"({"rsp":"succeed"})"), 0);
    EXPECT_EQ(reduce(R"({"rsp":"success"})"), 0);
    EXPECT_EQ(reduce(R"({"rsp":"succeed!!!"})"), 0);
    EXPECT_EQ(reduce(R"({"rsp":"fail","msg":"success"})"), 0);
    EXPECT_EQ(reduce(R"({"msg":"succeed"})"), 0);
    EXPECT_EQ(reduce(R"({"rsp":"fail"})"), -3);
    EXPECT_EQ(reduce(R"({"rsp":"Succeed"})"), -3);
    EXPECT_EQ(reduce(R"({"rsp":1,"msg":["success"]})"), -3);
    EXPECT_EQ(reduce(R"({"status":"","rsp":"succeed"})"), 0);
    EXPECT_EQ(reduce(R"({"status":"9","rsp":"succeed"})"), -1);
}

TEST_F(ResponseReductionTest, AnythingButAnObjectFails)
{
    EXPECT_EQ(reduce(""), -3);
    EXPECT_EQ(reduce("not json"), -3);
    EXPECT_EQ(reduce(R"({"status":"00000")"), -3);
    EXPECT_EQ(reduce(R"([{"status":"00000"}])"), -3);
    EXPECT_EQ(reduce("0"), -3);
    EXPECT_EQ(reduce(R"("succeed")"), -3);
    EXPECT_EQ(reduce(R"({"error":"empty reply"})"), -3);
    EXPECT_EQ(reduce("{}"), -3);
}

TEST_F(ResponseReductionTest, GeneralMapReadsDecimalText)
{
    struct Case {
        const char* code;
        int value;
    };
    const Case cases[] = {
        {"1", -3},          {"2", -101},     {"6", -105},     {"7", -3},        {"8", -106},
        {"9", -1},          {"10", 2},       {"11", -107},    {"13", 3},        {"16", -111},
        {"17", -9999},      {"10000", -112}, {"10001", -113}, {"10002", -9999}, {"0", -9999},
        {"abc", -9999},     {"0013", 3},     {"13abc", 3},    {"-1", -9999},    {"", -9999},
        {"4294967297", -3}, // truncated to int: 1
    };
    for (const Case& c : cases)
        EXPECT_EQ(worker->mapGeneralStatusCodeToValue(c.code), c.value) << "code " << c.code;
}

} // namespace
} // namespace linktest
