// SPDX-License-Identifier: Apache-2.0
// Saving onto the user's files: what must be refused, and what must stay as
// it was. Permissions mean nothing to root, so each case runs in a child
// process as an ordinary user (root gives its rights away there).
#include "TestFiles.h"

#include "platform/SafeFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <grp.h>
#include <map>
#include <sstream>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace tw {
namespace {

namespace fs = std::filesystem;

using test::slurp;

constexpr uid_t kNobody = 65534;
constexpr uid_t kSomeoneElse = 4242;

void put(const fs::path& p, const std::string& bytes, mode_t mode) {
    std::ofstream(p, std::ios::binary) << bytes;
    chmod(p.c_str(), mode);
}

mode_t modeOf(const fs::path& p) {
    struct stat st {};
    stat(p.c_str(), &st);
    return st.st_mode & 07777;
}

// What went wrong, one line a fault; empty when nothing did.
class Faults {
  public:
    void expect(bool ok, const std::string& what) {
        if (!ok) out_ << what << '\n';
    }
    void same(const std::string& got, const std::string& want, const std::string& what) {
        expect(got == want, what + ": got \"" + got + "\", want \"" + want + "\"");
    }
    std::string str() const { return out_.str(); }

  private:
    std::ostringstream out_;
};

// Runs `body` in a child process as an ordinary user; its faults come back.
std::string asOrdinaryUser(const std::function<void(Faults&)>& body) {
    int fds[2];
    if (pipe(fds) != 0) return "no pipe";
    const pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(3);
        Faults f;
        body(f);
        const std::string said = f.str();
        if (write(fds[1], said.data(), said.size()) < 0) _exit(4);
        _exit(0);
    }
    close(fds[1]);
    std::string said;
    char buf[4096];
    for (ssize_t n; (n = read(fds[0], buf, sizeof buf)) > 0;)
        said.append(buf, static_cast<size_t>(n));
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        said += "the child failed (status " + std::to_string(status) + ")";
    return said;
}

// A folder of the child's own, gone when the case ends.
struct Folder {
    fs::path path;
    explicit Folder(const std::string& name) : path(fs::temp_directory_path() / name) {
        fs::remove_all(path);
        fs::create_directories(path);
    }
    ~Folder() {
        std::error_code ec;
        fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, ec);
        fs::remove_all(path, ec);
    }
    // Nothing but the names given: no temporary file left behind.
    size_t entries() const { return static_cast<size_t>(std::distance(fs::directory_iterator(path), {})); }
};

TEST(SafeSave, AFileTheUserMayNotWriteIsRefusedAndLeftAsItWas) {
    EXPECT_EQ(asOrdinaryUser([](Faults& f) {
                  Folder d("tw-save-readonly");
                  const auto file = d.path / "bent.ebnt";
                  put(file, "previous", 0444);
                  const WriteResult r = replaceFile(file.string(), "new bytes");
                  f.same(std::to_string(r.errorNumber), "70", "error number");
                  f.same(r.error,
                         "Permission denied: you may not write to " + file.string() +
                             " (it is read-only for you); it was left as it is",
                         "description");
                  f.same(slurp(file), "previous", "the file");
                  f.expect(modeOf(file) == 0444, "the mode changed");
                  f.expect(d.entries() == 1, "a temporary file was left");
              }),
              "");
}

TEST(SafeSave, TheModeAndSymbolicLinksAreKept) {
    EXPECT_EQ(asOrdinaryUser([](Faults& f) {
                  Folder d("tw-save-mode");
                  for (mode_t mode : {0600, 0640, 0664}) {
                      const auto file = d.path / ("bent" + std::to_string(mode) + ".ebnt");
                      put(file, "previous", mode);
                      f.same(replaceFile(file.string(), "new").error, "", "save");
                      f.same(slurp(file), "new", "the file");
                      f.expect(modeOf(file) == mode,
                               "mode " + std::to_string(mode) + " became " + std::to_string(modeOf(file)));
                  }
                  // A link, relative or absolute, is written through; a link to nothing makes its file.
                  fs::create_directories(d.path / "projects");
                  put(d.path / "projects" / "real.ebnt", "previous", 0600);
                  fs::create_symlink("projects/real.ebnt", d.path / "relative.ebnt");
                  fs::create_symlink(d.path / "relative.ebnt", d.path / "chained.ebnt");
                  fs::create_symlink("projects/new.ebnt", d.path / "dangling.ebnt");
                  for (const char* link : {"relative.ebnt", "chained.ebnt", "dangling.ebnt"}) {
                      f.same(replaceFile((d.path / link).string(), link).error, "", link);
                      f.expect(fs::is_symlink(d.path / link), std::string(link) + " is no longer a link");
                      f.same(slurp(d.path / link), link, std::string("through ") + link);
                  }
                  f.expect(modeOf(d.path / "projects" / "real.ebnt") == 0600, "the link's target lost its mode");
                  // A file with a second name keeps it.
                  put(d.path / "linked.ebnt", "previous", 0644);
                  fs::create_hard_link(d.path / "linked.ebnt", d.path / "other-name.ebnt");
                  f.same(replaceFile((d.path / "linked.ebnt").string(), "both").error, "", "hard link");
                  f.same(slurp(d.path / "other-name.ebnt"), "both", "the other name");
              }),
              "");
}

TEST(SafeSave, LongNamesFoldersAndAFolderTheUserMayNotWrite) {
    EXPECT_EQ(asOrdinaryUser([](Faults& f) {
                  Folder d("tw-save-names");
                  for (size_t length : {248u, 250u, 255u}) {
                      const std::string name = std::string(length - 5, 'n') + ".ebnt";
                      f.same(replaceFile((d.path / name).string(), "long").error, "",
                             "a name of " + std::to_string(length) + " bytes");
                      f.same(slurp(d.path / name), "long", "the long-named file");
                  }
                  f.same(replaceFile((d.path / (std::string(251, 'n') + ".ebnt")).string(), "x").error,
                         "Path/File access error: the name " + (d.path / (std::string(251, 'n') + ".ebnt")).string() +
                             " is too long",
                         "a name too long");

                  fs::create_directories(d.path / "adir");
                  const WriteResult folder = replaceFile((d.path / "adir").string(), "x");
                  f.same(folder.error,
                         "Path/File access error: " + (d.path / "adir").string() +
                             " is a folder, not a file; nothing "
                             "was saved",
                         "a folder");

                  // The folder is closed to the user, the file is not: it is written in place.
                  fs::create_directories(d.path / "closed");
                  put(d.path / "closed" / "bent.ebnt", "previous", 0644);
                  chmod((d.path / "closed").c_str(), 0555);
                  f.same(replaceFile((d.path / "closed" / "bent.ebnt").string(), "in place").error, "", "in place");
                  f.same(slurp(d.path / "closed" / "bent.ebnt"), "in place", "the file in the closed folder");
                  const WriteResult created = replaceFile((d.path / "closed" / "new.ebnt").string(), "x");
                  f.same(std::to_string(created.errorNumber), "70", "a new file in the closed folder");
                  chmod((d.path / "closed").c_str(), 0755);
                  f.expect(d.entries() == 5, "a temporary file was left");
              }),
              "");
}

// The extended attributes of a file, by name.
std::map<std::string, std::string> attributesOf(const fs::path& p) {
    std::map<std::string, std::string> found;
    char names[4096];
    const ssize_t n = listxattr(p.c_str(), names, sizeof names);
    for (ssize_t i = 0; i < n; i += static_cast<ssize_t>(std::strlen(names + i)) + 1) {
        char value[4096];
        const ssize_t v = getxattr(p.c_str(), names + i, value, sizeof value);
        found[names + i] = v < 0 ? "?" : std::string(value, static_cast<size_t>(v));
    }
    return found;
}

// An access control list as the kernel keeps it: the owner rw, user 4242 rw,
// the group r, a mask of rw, others nothing.
std::string accessList() {
    const std::uint16_t entries[][2] = {{0x01, 6}, {0x02, 6}, {0x04, 4}, {0x10, 6}, {0x20, 0}};
    std::string acl = std::string("\x02\0\0\0", 4);
    for (const auto& [tag, perm] : entries) {
        const std::uint32_t id = tag == 0x02 ? kSomeoneElse : 0xFFFFFFFF;
        acl.append(reinterpret_cast<const char*>(&tag), 2);
        acl.append(reinterpret_cast<const char*>(&perm), 2);
        acl.append(reinterpret_cast<const char*>(&id), 4);
    }
    return acl;
}

// A save keeps who may read and write the file beyond its mode (an access
// control list) and what the user attached to it (extended attributes).
// Where the user may not give the new file an attribute the old one has,
// the file is written in place, and keeps them all.
TEST(SafeSave, AccessListsAndExtendedAttributesAreKept) {
    Folder d("tw-save-attributes");
    const auto file = d.path / "shared.ebnt";
    put(file, "previous", 0600);
    const std::string acl = accessList();
    ASSERT_EQ(setxattr(file.c_str(), "system.posix_acl_access", acl.data(), acl.size(), 0), 0) << strerror(errno);
    ASSERT_EQ(setxattr(file.c_str(), "user.checked-by", "RH", 2, 0), 0) << strerror(errno);
    const auto before = attributesOf(file);
    const mode_t mode = modeOf(file);
    EXPECT_EQ(mode, 0660u) << "the group bits show the list's mask";
    EXPECT_EQ(replaceFile(file.string(), "saved").error, "");
    EXPECT_EQ(slurp(file), "saved");
    EXPECT_EQ(attributesOf(file), before);
    EXPECT_EQ(modeOf(file), mode);
    EXPECT_EQ(d.entries(), 1u);

    if (geteuid() != 0) return; // only root can give a file an attribute its owner cannot set
    const auto locked = d.path / "labelled.ebnt";
    put(locked, "previous", 0644);
    ASSERT_EQ(chown(d.path.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(chown(locked.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(setxattr(locked.c_str(), "security.tarnwick-test", "label", 5, 0), 0) << strerror(errno);
    const auto labelled = attributesOf(locked);
    struct stat st {};
    stat(locked.c_str(), &st);
    const ino_t inode = st.st_ino;
    EXPECT_EQ(asOrdinaryUser([&](Faults& f) {
                  f.same(replaceFile(locked.string(), "by nobody").error, "", "save");
                  f.same(slurp(locked), "by nobody", "the file");
              }),
              "");
    EXPECT_EQ(attributesOf(locked), labelled);
    stat(locked.c_str(), &st);
    EXPECT_EQ(st.st_ino, inode) << "written in place";
}

// A file of someone else's that the user may write keeps its owner and group.
TEST(SafeSave, TheOwnerAndGroupAreKept) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a file to someone else to set this case up";
    Folder d("tw-save-owner");
    chown(d.path.c_str(), kNobody, kNobody);
    const auto file = d.path / "shared.ebnt";
    put(file, "previous", 0666);
    ASSERT_EQ(chown(file.c_str(), kSomeoneElse, kSomeoneElse), 0);
    EXPECT_EQ(asOrdinaryUser([&](Faults& f) { f.same(replaceFile(file.string(), "by nobody").error, "", "save"); }),
              "");
    // Root itself replaces the file, and gives it back to its owner.
    EXPECT_EQ(replaceFile(file.string(), "by root").error, "");
    struct stat st {};
    stat(file.c_str(), &st);
    EXPECT_EQ(st.st_uid, kSomeoneElse);
    EXPECT_EQ(st.st_gid, kSomeoneElse);
    EXPECT_EQ(st.st_mode & 07777, 0666u);
    EXPECT_EQ(slurp(file), "by root");
}

// The disk fills while a file with two names is written over in place (a
// rename would part the names): the next `failures` writes to that file put
// down half their bytes and fail.
int failures = 0;
fs::path failing;

ssize_t fillingWrite(int fd, const void* bytes, size_t count, off_t offset) {
    std::error_code ec;
    if (failures > 0 && fs::read_symlink("/proc/self/fd/" + std::to_string(fd), ec) == failing) {
        --failures;
        if (count > 1 && pwrite(fd, bytes, count / 2, offset) < 0) return -1;
        errno = ENOSPC;
        return -1;
    }
    return pwrite(fd, bytes, count, offset);
}

TEST(SafeSave, AFullDiskDuringAnInPlaceWriteIsToldAsItEnded) {
    Folder d("tw-save-inplace-full");
    const auto file = d.path / "bent.ebnt", other = d.path / "other-name.ebnt";
    const std::string previous(5000, 'p');
    put(file, previous, 0644);
    fs::create_hard_link(file, other);
    failing = fs::canonical(file);
    FileWrites::use(fillingWrite);

    failures = 1; // the new bytes fail; putting the old ones back works
    WriteResult r = replaceFile(file.string(), std::string(9000, 'n'));
    EXPECT_EQ(r.errorNumber, 61);
    EXPECT_EQ(r.error, "Disk full: " + file.string() +
                           " could not be written over (No space left on device); its previous bytes were put "
                           "back, so it is as it was before the save");
    EXPECT_EQ(slurp(file), previous);
    EXPECT_EQ(d.entries(), 2u) << "the copy stays only while it is needed";

    failures = 1000; // nothing more reaches the file
    r = replaceFile(file.string(), std::string(9000, 'n'));
    FileWrites::use(nullptr);
    EXPECT_EQ(r.errorNumber, 61);
    const std::string copyAt = "so it is left half-written; a copy of the previous file is at ";
    const auto at = r.error.find(copyAt);
    ASSERT_NE(at, std::string::npos) << r.error;
    const fs::path copy = r.error.substr(at + copyAt.size());
    EXPECT_EQ(copy.parent_path(), d.path);
    EXPECT_EQ(slurp(copy), previous);
    EXPECT_NE(slurp(file), previous) << "the message must not claim what did not happen";
    EXPECT_EQ(fs::hard_link_count(other), 2u);
}

// A save cut short leaves its temporary file; the next save in that folder
// removes it, and nothing else: not a name a user may give a file of their
// own, not a temporary a save still writes, not someone else's.
TEST(SafeSave, OnlyTheTemporariesOfCutShortSavesGo) {
    Folder d("tw-save-stale");
    const auto old = fs::file_time_type::clock::now() - std::chrono::minutes(5);
    auto make = [&](const std::string& name, bool stale) {
        put(d.path / name, "left over", 0600);
        if (stale) fs::last_write_time(d.path / name, old);
    };
    make(".tarnwick-save-Ab12Cd", true);
    make(".tarnwick-save-XyZ789", true);
    const std::vector<std::string> kept = {
        ".twilight",                 // the user's own, whatever it looks like
        ".twdraft1",                 //
        ".twAb12Cd",                 //
        ".tarnwick-save-Fresh1",     // a save under way has only just made it
        ".tarnwick-save-Locked",     // a save under way holds it
        ".tarnwick-save-Seven77",    // not the name of one
        "bent.tarnwick-save-123456", // nor this
        ".tarnwick-save-Link12",     // a link is nobody's temporary
        ".tarnwick-save-Others",     // someone else's, where a test can make one
    };
    for (size_t i = 0; i < kept.size(); ++i)
        if (i != 7) make(kept[i], i != 3);
    fs::create_symlink(d.path / kept[6], d.path / kept[7]);
    const bool others = geteuid() == 0 && chown((d.path / kept[8]).c_str(), kSomeoneElse, kSomeoneElse) == 0;
    const int lock = open((d.path / kept[4]).c_str(), O_RDONLY);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);

    EXPECT_EQ(replaceFile((d.path / "bent.ebnt").string(), "saved").errorNumber, 0);
    close(lock);
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(d.path))
        names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    std::vector<std::string> want = kept;
    if (!others) want.pop_back(); // ours after all, and stale: it goes
    want.push_back("bent.ebnt");
    std::sort(want.begin(), want.end());
    EXPECT_EQ(names, want);
}

// The words of a failure say what is there now: a new file that the disk
// could not take leaves nothing behind, and a link that leads round in a
// loop is no missing folder.
TEST(SafeSave, AFailureToldAsWhatIsThereNow) {
    Folder d("tw-save-words");
    failing = d.path;
    FileWrites::use([](int fd, const void*, size_t, off_t) -> ssize_t {
        std::error_code ec;
        if (fs::read_symlink("/proc/self/fd/" + std::to_string(fd), ec).parent_path() == failing) {
            errno = ENOSPC;
            return -1;
        }
        errno = EIO;
        return -1;
    });
    const auto fresh = d.path / "report.pdf";
    const WriteResult full = replaceFile(fresh.string(), "new bytes");
    FileWrites::use(nullptr);
    EXPECT_EQ(full.errorNumber, 61);
    EXPECT_EQ(full.error,
              "Disk full: " + fresh.string() + " could not be written (No space left on device); no file was made");
    EXPECT_EQ(d.entries(), 0u);

    fs::create_symlink("loop-b.ebnt", d.path / "loop-a.ebnt");
    fs::create_symlink("loop-a.ebnt", d.path / "loop-b.ebnt");
    fs::create_symlink("looping", d.path / "looping");
    const std::pair<fs::path, std::string> loops[] = {
        {d.path / "loop-a.ebnt", (d.path / "loop-a.ebnt").string()},
        {d.path / "looping" / "bent.ebnt", (d.path / "looping" / "bent.ebnt").string()},
    };
    for (const auto& [path, said] : loops) {
        const WriteResult r = replaceFile(path.string(), "x");
        EXPECT_EQ(r.errorNumber, 75) << path;
        EXPECT_EQ(r.error,
                  "Path/File access error: " + said +
                      " cannot be reached: a symbolic link on the way leads round in a loop; nothing was saved");
    }
    EXPECT_EQ(d.entries(), 3u);
}

} // namespace
} // namespace tw
