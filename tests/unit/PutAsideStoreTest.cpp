// SPDX-License-Identifier: Apache-2.0
// The folder of put-aside work: each copy whole and the user's alone, listed
// newest first with what tells it apart, Exit's copies offered once, old
// and surplus copies gone, and a folder that cannot take a copy said so.
#include "FakePorts.h"
#include "TestFiles.h"

#include "core/form/Recovery.h"
#include "platform/PutAsideStore.h"

#include <QDateTime>
#include <QFile>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

namespace tw {
namespace {

namespace fs = std::filesystem;

class PutAsideStoreTest : public ::testing::Test {
  protected:
    fs::path dir = test::freshFolder("tarnwick-aside-store-");
    fs::path folder = dir / "data" / "put-aside";
    PutAsideStore store{QString::fromStdString(folder.string())};

    void TearDown() override {
        fs::permissions(dir, fs::perms::owner_all, fs::perm_options::add);
        fs::remove_all(dir);
    }
    // A project's recovery bytes: its file and how many bents.
    static std::string project(const std::string& file, int bents) {
        test::FakePorts ports;
        Session s(ports, ports, "/nonexistent");
        loadMainForm(s);
        if (!file.empty()) {
            s.setDialogFileName(file);
            setMainCaption(s, true);
        }
        s.setText(CtlId(Ctl::txtProjectInfo, 0), "TITLE OF " + file);
        s.changeTable([&](BentTable& t) {
            for (int b = 1; b <= bents; ++b)
                t.addItem(std::to_string(b) + "\t\t\t300\t300\t300\t300\t301\t301\t301\t301\t");
        });
        return composeRecovery(s);
    }
    static mode_t mode(const fs::path& p) {
        struct stat st {};
        ::stat(p.c_str(), &st);
        return st.st_mode & 07777;
    }
    static void age(const QString& path, int days) {
        const time_t t = QDateTime::currentDateTime().addDays(-days).toSecsSinceEpoch();
        const utimbuf times{t, t};
        ::utime(QFile::encodeName(path).constData(), &times);
    }
};

TEST_F(PutAsideStoreTest, ACopyIsWholeAndTheUsersAlone) {
    fs::create_directories(folder);
    fs::permissions(folder, fs::perms(0755)); // left open by someone: closed again
    const std::string bytes = project("", 2);
    const PutAside kept = store.keep(bytes, "Open");
    ASSERT_TRUE(kept.kept) << kept.error;
    EXPECT_EQ(kept.time.size(), 5u);
    EXPECT_EQ(test::slurp(kept.path), bytes);
    EXPECT_EQ(mode(kept.path), 0600u);
    EXPECT_EQ(mode(folder), 0700u);
    // No temporary file is left beside it.
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
}

TEST_F(PutAsideStoreTest, CopiesAreListedNewestFirstWithTheirProjectAndBents) {
    ASSERT_TRUE(store.keep(project("/jobs/old.ebnt", 3), "New").kept);
    ASSERT_TRUE(store.keep(project("", 0), "Open").kept);
    const auto copies = store.list();
    ASSERT_EQ(copies.size(), 2u);
    age(copies[1].path, 1); // one a day older than the other, whatever the clock's grain
    const auto listed = store.list();
    EXPECT_EQ(listed[0].currentFile, "");
    EXPECT_EQ(listed[0].command, "Open");
    EXPECT_EQ(listed[1].currentFile, "/jobs/old.ebnt");
    EXPECT_EQ(listed[1].title, "TITLE OF /jobs/old.ebnt");
    EXPECT_EQ(listed[1].bents, 3);
    EXPECT_EQ(listed[1].command, "New");
    EXPECT_EQ(PutAsideStore::read(listed[1]), project("/jobs/old.ebnt", 3));
}

TEST_F(PutAsideStoreTest, WhatExitPutAsideIsOfferedOnceAndStaysInTheList) {
    ASSERT_TRUE(store.keep(project("/jobs/a.ebnt", 1), "Exit").kept);
    ASSERT_TRUE(store.keep(project("/jobs/b.ebnt", 1), "Open").kept);
    const auto offered = store.claimLeftByExit();
    ASSERT_EQ(offered.size(), 1u);
    EXPECT_EQ(offered[0].currentFile, "/jobs/a.ebnt");
    EXPECT_TRUE(QFile::exists(offered[0].path));
    EXPECT_TRUE(store.claimLeftByExit().empty());
    EXPECT_EQ(store.list().size(), 2u);
}

TEST_F(PutAsideStoreTest, OldCopiesAndThoseBeyondTheNewestGo) {
    for (int i = 0; i < 6; ++i)
        ASSERT_TRUE(store.keep(project("/jobs/p" + std::to_string(i) + ".ebnt", 0), "Open").kept);
    auto copies = store.list();
    for (size_t i = 0; i < copies.size(); ++i)
        age(copies[i].path, static_cast<int>(i) * 10); // 0, 10, ... 50 days old
    store.prune(30, 2);
    copies = store.list();
    ASSERT_EQ(copies.size(), 2u); // the newest two; the 40- and 50-day-old ones would have gone anyway
    EXPECT_LT(copies[0].kept.daysTo(QDateTime::currentDateTime()), 1);
    store.prune(5, 50);
    EXPECT_EQ(store.list().size(), 1u);
}

TEST_F(PutAsideStoreTest, AFolderThatCannotTakeACopySaysWhy) {
    if (::geteuid() == 0) {
        // Root writes anywhere: a file where the folder should be stands in for a locked folder.
        fs::create_directories(folder.parent_path());
        std::ofstream(folder) << "not a folder";
    } else {
        fs::create_directories(folder.parent_path());
        fs::permissions(folder.parent_path(), fs::perms(0500));
    }
    const PutAside kept = store.keep(project("", 0), "New");
    EXPECT_FALSE(kept.kept);
    EXPECT_NE(kept.error.find(folder.string()), std::string::npos) << kept.error;
}

// Run's outputs that land outside the project's folder: an existing file is
// copied whole into outputs/, the user's alone, and stays out of the list of
// work to restore; a link, a pipe, an empty or missing file is not copied.
TEST_F(PutAsideStoreTest, AnOutputAboutToBeEmptiedIsCopiedWholeAndPrivately) {
    const fs::path listing = dir / "proj.ebent";
    std::ofstream(listing) << "another project's listing";
    const PutAside kept = store.keepFile(listing.string());
    ASSERT_TRUE(kept.kept) << kept.error;
    EXPECT_EQ(fs::path(kept.path).parent_path(), folder / "outputs");
    EXPECT_TRUE(kept.path.ends_with("-proj.ebent")) << kept.path;
    EXPECT_EQ(test::slurp(kept.path), "another project's listing");
    struct stat st {};
    ASSERT_EQ(::stat(kept.path.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    ASSERT_EQ(::stat((folder / "outputs").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0700u);
    EXPECT_TRUE(store.list().empty());

    std::ofstream(dir / "empty.egen");
    fs::create_symlink(listing, dir / "link.egen");
    ASSERT_EQ(::mkfifo((dir / "fifo.egen").c_str(), 0600), 0);
    for (const char* name : {"empty.egen", "link.egen", "fifo.egen", "missing.egen"}) {
        const PutAside none = store.keepFile((dir / name).string());
        EXPECT_FALSE(none.kept) << name;
        EXPECT_EQ(none.error, "") << name;
    }
}

} // namespace
} // namespace tw
