// SPDX-License-Identifier: Apache-2.0
// Script words and quoting of the headless front end; the raw INI read.
#include "core/Quoting.h"
#include "platform/Platform.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tw {
namespace {

TEST(ScriptWords, PlainAndQuotedWithEscapes) {
    std::string why;
    auto w = splitScriptLine(R"(type  txtProjectInfo(0) "a \"b\" \\ \t\r\n\b" 12.5)", why);
    ASSERT_TRUE(w);
    ASSERT_EQ(w->size(), 4u);
    EXPECT_EQ((*w)[1].text, "txtProjectInfo(0)");
    EXPECT_EQ((*w)[2].text, "a \"b\" \\ \t\r\n\b");
    EXPECT_TRUE((*w)[2].quoted);
    EXPECT_EQ((*w)[3].text, "12.5");
    EXPECT_FALSE(splitScriptLine(R"(show "open)", why));
    EXPECT_FALSE(splitScriptLine(R"(show "bad \q")", why));
    EXPECT_TRUE(splitScriptLine("   ", why)->empty());
}

TEST(ScriptWords, QuoteEscapesWhatTheOutputNeeds) {
    EXPECT_EQ(quote("a\tb\r\nc \"d\" \\"), R"("a\tb\r\nc \"d\" \\")");
    EXPECT_EQ(quote(""), "\"\"");
}

class IniRead : public ::testing::Test {
  protected:
    // One file a test: the tests may run in parallel processes.
    std::string path =
        (std::filesystem::temp_directory_path() /
         (std::string("tarnwick-") + ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".ini"))
            .string();
    void write(const std::string& text) { std::ofstream(path, std::ios::binary) << text; }
    void TearDown() override { std::filesystem::remove(path); }
};

TEST_F(IniRead, TakesTheValueRawAsWindowsDoes) {
    write(
        "; comment\r\n[Other]\r\ndgnbatch=wrong\r\n[MicroStation]\r\n DGNBATCH = C:\\Prog Files\\draw.exe -x;y,z \r\n");
    EXPECT_EQ(readIniRaw(path, "microstation", "dgnbatch", ""), "C:\\Prog Files\\draw.exe -x;y,z");
    write("[microstation]\ndgnbatch=\"/opt/cad/batch -x\"\n");
    EXPECT_EQ(readIniRaw(path, "microstation", "dgnbatch", ""), "/opt/cad/batch -x");
}

TEST_F(IniRead, DefaultWhenMissingAndAtMost255Characters) {
    EXPECT_EQ(readIniRaw(path + ".none", "microstation", "dgnbatch", "dflt"), "dflt");
    write("[microstation]\nother=1\n");
    EXPECT_EQ(readIniRaw(path, "microstation", "dgnbatch", ""), "");
    write("[microstation]\ndgnbatch=" + std::string(300, 'x') + "\n");
    EXPECT_EQ(readIniRaw(path, "microstation", "dgnbatch", "").size(), 255u);
}

} // namespace
} // namespace tw
