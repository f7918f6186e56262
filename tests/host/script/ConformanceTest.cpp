// Runs every script of the conformance folder and compares what it printed to the
// listener (and its error report, if it failed) with the .out file beside it.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/core/WStr.h"
#include "host/object/Interface.h"
#include "host/script/Interpreter.h"

namespace host::script {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

// The listener text of one script run in a fresh interpreter.
std::string RunScript(const std::string& source) {
    GetCOREInterface()->ClearListener();
    Interpreter in;
    in.SetStepLimit(1'000'000);
    Value result;
    ScriptFailure failure;
    if (!in.Run(WStr::FromUtf8(source).str(), result, failure))
        GetCOREInterface()->Print(WStr(failure.Report() + L"\n"));
    return GetCOREInterface()->ListenerText().ToUtf8();
}

std::vector<fs::path> Scripts() {
    std::vector<fs::path> scripts;
    for (const auto& entry : fs::directory_iterator(ZV_CONFORMANCE_DIR))
        if (entry.path().extension() == ".trx") scripts.push_back(entry.path());
    std::sort(scripts.begin(), scripts.end());
    return scripts;
}

class Conformance : public testing::TestWithParam<fs::path> {};

TEST_P(Conformance, PrintsExpectedListenerText) {
    const fs::path script = GetParam();
    fs::path expected = script;
    expected.replace_extension(".out");
    ASSERT_TRUE(fs::exists(expected)) << expected;
    EXPECT_EQ(RunScript(ReadFile(script)), ReadFile(expected)) << script.filename();
}

INSTANTIATE_TEST_SUITE_P(Scripts, Conformance, testing::ValuesIn(Scripts()),
                         [](const testing::TestParamInfo<fs::path>& info) {
                             return info.param.stem().string();
                         });

}  // namespace
}  // namespace host::script
