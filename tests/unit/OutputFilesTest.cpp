// SPDX-License-Identifier: Apache-2.0
// Run empties only plain files of their own: an output name that is a
// link, a folder, a pipe, a device or a socket is refused before anything
// is emptied, and nothing waits on a pipe.
#include "RunTarnwick.h"

#include "platform/OutputFiles.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace tw {
namespace {

namespace fs = std::filesystem;
using test::slurp;

class OutputNames : public ::testing::Test {
  protected:
    fs::path dir = test::freshFolder("tarnwick-outputs-");
    void TearDown() override { fs::remove_all(dir); }
    std::string at(const std::string& name) const { return (dir / name).string(); }
    void put(const std::string& name, const std::string& bytes) const {
        std::ofstream(dir / name, std::ios::binary) << bytes;
    }
};

TEST_F(OutputNames, PlainFilesAreEmptiedAndMissingOnesMade) {
    put("a.out", "old results");
    EXPECT_EQ(emptyOutputFiles({at("a.out"), at("b.out")}).error, "");
    EXPECT_EQ(fs::file_size(dir / "a.out"), 0u);
    EXPECT_EQ(fs::file_size(dir / "b.out"), 0u);
}

TEST_F(OutputNames, AnythingButAPlainFileOfItsOwnIsRefusedAndNothingIsEmptied) {
    put("precious.txt", "precious");
    fs::create_symlink(dir / "precious.txt", dir / "link.out");
    fs::create_symlink(dir / "nothing.txt", dir / "dangling.out");
    fs::create_directories(dir / "folder.out");
    ASSERT_EQ(mkfifo(at("pipe.out").c_str(), 0600), 0);
    put("twice.out", "shared");
    fs::create_hard_link(dir / "twice.out", dir / "other-name.txt");
    const int sock = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    const std::string sockPath = at("socket.out");
    ASSERT_LT(sockPath.size(), sizeof addr.sun_path);
    sockPath.copy(addr.sun_path, sockPath.size());
    ASSERT_EQ(bind(sock, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);

    const std::pair<std::string, std::string> cases[] = {
        {at("link.out"), "a symbolic link to " + at("precious.txt")},
        {at("dangling.out"), "a symbolic link to " + at("nothing.txt")},
        {at("folder.out"), "a folder"},
        {at("pipe.out"), "a pipe"},
        {"/dev/null", "a device"},
        {sockPath, "a socket"},
        {at("twice.out"), "a file with 1 other name(s) (hard links)"},
    };
    for (const auto& [name, what] : cases) {
        put("first.out", "old results");
        const WriteResult r = emptyOutputFiles({at("first.out"), name, at("last.out")});
        EXPECT_EQ(r.errorNumber, 75) << name;
        EXPECT_EQ(r.error, "Path/File access error: the output " + name + " is " + what +
                               "; Run empties and writes only plain files of their own, so no output was emptied");
        EXPECT_EQ(slurp(dir / "first.out"), "old results") << name;
        EXPECT_FALSE(fs::exists(dir / "last.out")) << name;
    }
    close(sock);
    EXPECT_EQ(slurp(dir / "precious.txt"), "precious");
    EXPECT_EQ(slurp(dir / "other-name.txt"), "shared");
    EXPECT_FALSE(fs::exists(dir / "nothing.txt"));
}

// The whole road: the engine never runs, the box tells why, the user's files stand.
TEST_F(OutputNames, RunRefusesALinkOrAPipeAmongItsOutputsInItsBox) {
    fs::copy_file(fs::path(TW_SOURCE_DIR) / "samples" / "intermediate.ebnt", dir / "job.ebnt");
    put("precious.txt", "precious");
    put("job.ebntc", "old results");
    fs::create_symlink(dir / "precious.txt", dir / "job.ebntr");
    test::Ran ran = test::runTarnwick({"--program-dir", TW_PROGRAM_DIR, "run", "job.ebnt"}, dir);
    EXPECT_EQ(ran.status, 1) << ran.err;
    const std::string box = "message \"Error Importing Input File\" \"Error Number:\\t75\\r\\nDescription:\\t"
                            "Path/File access error: the output " +
                            at("job.ebntr") + " is a symbolic link to " + at("precious.txt") +
                            "; Run empties and writes only plain files of their own, so no output was "
                            "emptied\\r\\nPlease notify administrator.\" OK critical -> OK\n";
    EXPECT_NE(ran.out.find(box), std::string::npos) << ran.out;
    EXPECT_EQ(ran.out.find("engine "), std::string::npos) << ran.out;
    EXPECT_EQ(slurp(dir / "precious.txt"), "precious");
    EXPECT_EQ(slurp(dir / "job.ebntc"), "old results");

    fs::remove(dir / "job.ebntr");
    fs::remove(dir / "job.ebntc");
    ASSERT_EQ(mkfifo(at("job.ebntc").c_str(), 0600), 0);
    ran = test::runTarnwick({"--program-dir", TW_PROGRAM_DIR, "run", "job.ebnt", "--timeout", "3"}, dir);
    EXPECT_EQ(ran.status, 1) << ran.err;
    EXPECT_NE(ran.out.find("Path/File access error: the output " + at("job.ebntc") + " is a pipe;"), std::string::npos)
        << ran.out;
}

} // namespace
} // namespace tw
