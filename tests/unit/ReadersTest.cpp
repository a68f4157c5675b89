// SPDX-License-Identifier: Apache-2.0
// What the program reads besides projects -- the engine's listings, the
// engine's settings, the user's settings -- may be a pipe that never ends,
// a device or a file far larger than it should be: each is refused with
// its reason, and nothing waits for ever or fills the memory. The real
// executable, bounded in time.
#include "RunTarnwick.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace tw {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

std::string sample() { return test::slurp(fs::path(TW_SOURCE_DIR) / "samples" / "intermediate.ebnt"); }

// The settings of the programs the test starts come from `folder`, for as long as this lives.
class SettingsIn {
  public:
    explicit SettingsIn(const fs::path& folder) {
        if (const char* was = std::getenv("XDG_CONFIG_HOME")) before_ = was;
        setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    }
    ~SettingsIn() {
        if (before_)
            setenv("XDG_CONFIG_HOME", before_->c_str(), 1);
        else
            unsetenv("XDG_CONFIG_HOME");
    }
    SettingsIn(const SettingsIn&) = delete;
    SettingsIn& operator=(const SettingsIn&) = delete;

  private:
    std::optional<std::string> before_;
};

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// The preview and the printing of the engine's listing: a pipe or a file far
// larger than a listing is refused in the error box, at once.
TEST(Readers, TheListingPreviewRefusesAPipeAndAHugeFile) {
    const fs::path dir = test::freshFolder("tarnwick-readers-");
    std::ofstream(dir / "bent.ebnt", std::ios::binary) << sample();
    std::ofstream(dir / "script.txt") << "file bent.ebnt\nclick mnuOpen\nclick mnuPrint\nclick printPreview\n";
    const std::string listing = (dir / "bent.ebntc").string();
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { ASSERT_EQ(mkfifo(listing.c_str(), 0600), 0); }, " is not a file but a device, a pipe or a socket"},
        {[&] {
             std::ofstream(listing) << "a listing\r\n";
             fs::resize_file(listing, 64u << 20); // sparse: no room taken
         },
         " is larger than a file of its kind can be (16 MiB)"},
    };
    for (const auto& [make, said] : cases) {
        fs::remove(listing);
        make();
        const test::Ran ran =
            test::runTarnwick({"--program-dir", TW_PROGRAM_DIR, "replay", "script.txt"}, dir, {}, 20s);
        ASSERT_EQ(ran.status, 0) << said << ": " << ran.err;
        EXPECT_TRUE(holds(ran.out, "Description:\\tPath/File access error: " + listing + said)) << ran.out;
        EXPECT_FALSE(holds(ran.out, "window show frmViewTest")) << ran.out;
    }
    fs::remove_all(dir);
}

// Ebent.ini a pipe, or a link to a device that never ends: Run names it in
// its error box, after the engine has run as before, and the time limit is
// never needed.
TEST(Readers, RunRefusesEngineSettingsThatAreAPipeOrADevice) {
    const fs::path dir = test::freshFolder("tarnwick-readers-");
    const fs::path program = dir / "program";
    fs::create_directories(program);
    fs::create_symlink(fs::path(TW_PROGRAM_DIR) / "libcalbnt.so", program / "libcalbnt.so");
    std::ofstream(dir / "bent.ebnt", std::ios::binary) << sample();
    const std::string ini = (program / "Ebent.ini").string();
    const std::function<void()> makes[] = {
        [&] { ASSERT_EQ(mkfifo(ini.c_str(), 0600), 0); },
        [&] { fs::create_symlink("/dev/zero", ini); },
    };
    for (const auto& make : makes) {
        fs::remove(ini);
        make();
        const test::Ran ran =
            test::runTarnwick({"--program-dir", program.string(), "run", "bent.ebnt", "--timeout", "3"}, dir, {}, 20s);
        ASSERT_EQ(ran.status, 1) << ran.out << ran.err;
        EXPECT_TRUE(holds(ran.out, "engine \"")) << ran.out;
        EXPECT_TRUE(
            holds(ran.out, "message \"Error Importing Input File\" \"Error Number:\\t75\\r\\nDescription:\\tPath/"
                           "File access error: " +
                               ini + " is not a file but a device, a pipe or a socket"))
            << ran.out;
    }
    fs::remove_all(dir);
}

// The user's settings file a link to a pipe or to a device: nothing waits,
// the device stays a device, the pipe a pipe, and a warning says why the
// settings are not kept. A link to a plain file is written through,
// and stays a link.
TEST(Readers, SettingsThatAreAPipeOrADeviceAreLeftAlone) {
    const fs::path dir = test::freshFolder("tarnwick-readers-");
    const fs::path folder = dir / "config" / "Norvale";
    fs::create_directories(folder);
    const SettingsIn settings(dir / "config");
    std::ofstream(dir / "script.txt") << "setting\nchoose cboNoBeam 7\nsetting\n";
    const fs::path conf = folder / "Tarnwick.conf", target = dir / "elsewhere";
    const bool root = geteuid() == 0;
    const std::pair<std::function<void()>, std::function<bool()>> cases[] = {
        {[&] { ASSERT_EQ(mkfifo(target.c_str(), 0600), 0); }, [&] { return fs::is_fifo(target); }},
        // A device node of our own where we may make one (the null device's numbers), else the null device itself.
        {[&] {
             if (!root || mknod(target.c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0)
                 fs::create_symlink("/dev/null", target);
         },
         [&] { return fs::is_character_file(target); }},
    };
    for (const auto& [make, stillThere] : cases) {
        fs::remove(target);
        fs::remove(conf);
        make();
        fs::create_symlink(target, conf);
        const test::Ran ran =
            test::runTarnwick({"--program-dir", TW_PROGRAM_DIR, "replay", "script.txt"}, dir, {}, 20s);
        ASSERT_EQ(ran.status, 0) << ran.err;
        EXPECT_EQ(ran.out, "setting LastTime = \"\"\nsetting LastTime = \"\"\n");
        EXPECT_TRUE(holds(ran.err, "tarnwick: warning: the settings file " + conf.string() + " is not a file but"))
            << ran.err;
        EXPECT_TRUE(stillThere()) << "what the settings' link pointed at was replaced";
        EXPECT_TRUE(fs::is_symlink(conf));
    }
    // A link to a plain file: written through, and the link stays.
    fs::remove(target);
    fs::remove(conf);
    std::ofstream(target) << "[Usage]\nUsageInfo\\LastTime=5\n";
    fs::create_symlink(target, conf);
    const test::Ran ran = test::runTarnwick({"--program-dir", TW_PROGRAM_DIR, "replay", "script.txt"}, dir, {}, 20s);
    EXPECT_EQ(ran.out, "setting LastTime = \"4\"\nsetting LastTime = \"7\"\n") << ran.err; // the form starts with 4 beams
    EXPECT_TRUE(fs::is_symlink(conf));
    EXPECT_TRUE(holds(test::slurp(target), "LastTime=7"));
    fs::remove_all(dir);
}

} // namespace
} // namespace tw
