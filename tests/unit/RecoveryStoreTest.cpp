// SPDX-License-Identifier: Apache-2.0
// Where recovery files are kept: the user's alone, and a file that cannot
// be read is set aside once, never offered again.
#include "TestFiles.h"

#include "platform/RecoveryStore.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QString>

#include <filesystem>
#include <sys/stat.h>

namespace tw {
namespace {

namespace fs = std::filesystem;

mode_t modeOf(const fs::path& p) {
    struct stat st {};
    stat(p.c_str(), &st);
    return st.st_mode & 07777;
}

QString qpath(const fs::path& p) { return QString::fromStdString(p.string()); }

// The project may be private, so its recovery file is: 0600 in a 0700
// folder, whatever the umask and however the folder was made before.
TEST(RecoveryStore, RecoveryFilesAreTheUsersAlone) {
    const fs::path dir = test::freshFolder("tarnwick-store-");
    const mode_t mask = umask(022);
    for (const fs::path& folder : {dir / "new" / "Tarnwick", dir / "old"}) {
        if (folder.filename() == "old") fs::create_directories(folder); // 0755, as an earlier version left it
        RecoveryStore store(qpath(folder));
        ASSERT_TRUE(store.open());
        ASSERT_EQ(store.write("a project\r\n").errorNumber, 0);
        EXPECT_EQ(modeOf(folder), 0700u) << folder;
        EXPECT_EQ(modeOf(store.path().toStdString()), 0600u) << folder;
        // A file an earlier version wrote with the umask's mode is made the user's alone at the next write.
        chmod(store.path().toStdString().c_str(), 0644);
        ASSERT_EQ(store.write("more\r\n").errorNumber, 0);
        EXPECT_EQ(modeOf(store.path().toStdString()), 0600u) << folder;
        store.remove();
    }
    umask(mask);
    fs::remove_all(dir);
}

// A left recovery file that does not read is not offered: it is set aside
// under a name of its own, said once, and the next session does not see it.
TEST(RecoveryStore, AnUnreadableLeftFileIsSetAsideNotOffered) {
    const fs::path dir = test::freshFolder("tarnwick-store-");
    std::ofstream(dir / "recovery-1-1.ebnt") << "a project\r\n[Tarnwick recovery 1]\r\nrow\r\n";
    {
        RecoveryStore store(qpath(dir));
        ASSERT_TRUE(store.open());
        const auto left = store.claimLeft();
        ASSERT_EQ(left.size(), 1u);
        EXPECT_NE(left[0].problem.find("line 2: a row of the bent table comes before its columns"), std::string::npos)
            << left[0].problem;
        EXPECT_EQ(left[0].path.toStdString(), (dir / "recovery-1-1.ebnt.unreadable").string());
        EXPECT_TRUE(fs::exists(dir / "recovery-1-1.ebnt.unreadable")) << "its bytes are kept";
        EXPECT_FALSE(fs::exists(dir / "recovery-1-1.ebnt"));
        EXPECT_EQ(modeOf(dir / "recovery-1-1.ebnt.unreadable"), 0600u);
    }
    RecoveryStore next(qpath(dir));
    ASSERT_TRUE(next.open());
    EXPECT_TRUE(next.claimLeft().empty());
    fs::remove_all(dir);
}

} // namespace
} // namespace tw
