// The state file the simulator starts from and saves to, and a start script
// that fails. The end-to-end tests set every device up with a start script.
#include "sim_harness.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace simtest;

namespace {

void writeFile(const std::string& path, const std::string& text)
{
    std::ofstream(path) << text;
}

json readJson(const std::string& path)
{
    std::ifstream in(path);
    return json::parse(in, nullptr, false);
}

TEST(SimStateFile, StartsFromTheFileAndSavesChangesBack)
{
    testsupport::TempDir files;
    const std::string path = files.file("demo.json");
    writeFile(path,
              R"({"system": {"workmode_id": 1}, "lcd": {"lock_stat": 1, "lcd_theme_id": 1}})");
    auto useFile = [&](sim::SimConfig& config) { config.state_path = path; };
    {
        Harness sim(useFile);
        EXPECT_EQ(sim.web(request("system_api", "workmode", "get_workmode_id"))["workmode_id"], 1);
        EXPECT_EQ(sim.web(request("system_api", "lcd", "get_lcd_info"))["data"]["lock_stat"], 1);
        EXPECT_TRUE(sim.stateAt("/system/version/SN").is_string()) << "keys left out keep defaults";
        ASSERT_EQ(sim.status(
                      request("system_api", "sys_attr", "set_sys_attr_info", {{"language_id", 2}})),
                  "00000");
        EXPECT_TRUE(testsupport::waitUntil(
            [&] { return readJson(path).value("/system/language_id"_json_pointer, -1) == 2; }));
    }
    Harness again(useFile);
    EXPECT_EQ(again.web(request("system_api", "sys_language",
                                "get_sys_language_info"))["data"]["language_id"],
              2);
    EXPECT_EQ(again.web(request("system_api", "lcd", "get_lcd_theme"))["data"]["lcd_theme_id"], 1);
}

TEST(SimStateFile, FileThatIsNoJsonObjectIsRefusedAtStart)
{
    testsupport::TempDir files;
    sim::SimConfig config = testsupport::privateSimConfig(files);
    config.state_path = files.file("state.json");
    for (const char* text : {"{ not json", "[1, 2]"}) {
        writeFile(config.state_path, text);
        EXPECT_THROW(sim::Simulator{config}, std::runtime_error) << text;
    }
}

TEST(SimScript, BadLineStopsTheStartNamingItsPlaceAfterCommentsAndBlankLines)
{
    testsupport::TempDir files;
    writeFile(files.file("bad.txt"), "# demo\nworkmode 1\n\nexplode now\n");
    sim::SimConfig config = testsupport::privateSimConfig(files);
    config.script_path = files.file("bad.txt");
    sim::Simulator broken(config);
    try {
        broken.start();
        ADD_FAILURE() << "a bad script line must stop the start";
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("bad.txt:4"), std::string::npos) << e.what();
    }
}

} // namespace
