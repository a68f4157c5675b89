// SPDX-License-Identifier: Apache-2.0
#include "platform/PutAsideStore.h"

#include "core/form/Recovery.h"
#include "platform/FileRead.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace tw {

namespace {

const QString kSuffix = QStringLiteral(".ebnt");
// A copy Exit left and no window has offered yet.
const QString kUnoffered = QStringLiteral("-unoffered");
// Far more than the largest project needs (about 40 KB as a recovery file).
constexpr std::uintmax_t kMaxCopyBytes = 4 * 1024 * 1024;
// Far more than any listing of the engine's; a larger file is not copied, and Run stops.
constexpr std::uintmax_t kMaxOutputBytes = 256 * 1024 * 1024;

std::string reason(int e) { return std::strerror(e); }

// A folder of ours that only we may enter: made 0700, and put back to 0700
// when it is ours and lets others in.
bool privateFolder(const std::string& path, std::string& why) {
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) {
        why = "the folder " + path + " cannot be made (" + reason(errno) + ")";
        return false;
    }
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) {
        why = path + " is not a folder";
        return false;
    }
    if (st.st_uid != ::geteuid()) {
        why = "the folder " + path + " belongs to another user";
        return false;
    }
    if ((st.st_mode & 077) != 0 && ::chmod(path.c_str(), 0700) != 0) {
        why = "the folder " + path + " cannot be closed to other users (" + reason(errno) + ")";
        return false;
    }
    return true;
}

// Bytes to a new file of the user's alone, whole or not at all.
std::string writePrivate(const std::string& folder, const std::string& name, const std::string& bytes) {
    std::string temp = folder + "/.tarnwick-aside-XXXXXX";
    const int fd = ::mkostemp(temp.data(), O_CLOEXEC); // 0600
    if (fd < 0) return "no copy can be made in " + folder + " (" + reason(errno) + ")";
    size_t done = 0;
    int error = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            error = n == 0 ? ENOSPC : errno;
            break;
        }
        done += static_cast<size_t>(n);
    }
    if (!error && ::fsync(fd) != 0 && errno != EINVAL) error = errno;
    ::close(fd);
    if (!error && ::rename(temp.c_str(), (folder + "/" + name).c_str()) != 0) error = errno;
    if (error) {
        ::unlink(temp.c_str());
        return "the copy could not be written in " + folder + " (" + reason(error) + ")";
    }
    return {};
}

std::string commandOf(const QString& fileName) {
    // NAME: DATE-TIME-MS-PID-N-COMMAND[-unoffered].ebnt
    QString base = fileName.chopped(kSuffix.size());
    if (base.endsWith(kUnoffered)) base.chop(kUnoffered.size());
    return base.section(QLatin1Char('-'), 5).toStdString();
}

} // namespace

PutAsideStore::PutAsideStore(QString folder) : folder_(folder.isEmpty() ? defaultFolder() : std::move(folder)) {}

QString PutAsideStore::defaultFolder() {
    // Not the application's own data location: the headless commands and the
    // window must find the same folder whatever their application names.
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return data.isEmpty() ? QString() : data + QStringLiteral("/Norvale/Tarnwick/put-aside");
}

bool PutAsideStore::ready(std::string& why) const {
    if (folder_.isEmpty()) {
        why = "there is no per-user data folder";
        return false;
    }
    // Its parents as the recovery files' folder has them; the copies' own folder for the user alone.
    const QFileInfo info(folder_);
    if (!QDir().mkpath(info.absolutePath())) {
        why = "the folder " + info.absolutePath().toStdString() + " cannot be made";
        return false;
    }
    return privateFolder(QFile::encodeName(folder_).toStdString(), why);
}

PutAside PutAsideStore::keep(const std::string& bytes, const std::string& command) {
    PutAside result;
    std::string why;
    if (!ready(why)) {
        result.error = why;
        return result;
    }
    static std::atomic<int> serial{0};
    const QDateTime now = QDateTime::currentDateTime();
    QString word = QString::fromStdString(command);
    word.remove(QLatin1Char('-'));
    QString name = now.toString(QStringLiteral("yyyyMMdd-HHmmss-zzz")) + QLatin1Char('-') +
                   QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-') + QString::number(++serial) +
                   QLatin1Char('-') + word;
    if (command == "Exit") name += kUnoffered;
    name += kSuffix;
    const std::string folder = QFile::encodeName(folder_).toStdString();
    if (std::string error = writePrivate(folder, QFile::encodeName(name).toStdString(), bytes); !error.empty()) {
        result.error = error;
        return result;
    }
    result.kept = true;
    result.path = folder + "/" + QFile::encodeName(name).toStdString();
    result.time = now.toString(QStringLiteral("HH:mm")).toStdString();
    return result;
}

PutAside PutAsideStore::keepFile(const std::string& path) {
    PutAside result;
    struct stat st {};
    // A link, a pipe or a device is no output Run empties: it refuses them itself.
    if (::lstat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode) || st.st_size == 0) return result;
    const ReadResult file = readRegularFile(path, kMaxOutputBytes);
    if (file.errorNumber) {
        result.error = file.error;
        return result;
    }
    if (file.bytes.empty()) return result;
    std::string why;
    if (!ready(why)) {
        result.error = why;
        return result;
    }
    const std::string folder = QFile::encodeName(folder_).toStdString() + "/outputs";
    if (!privateFolder(folder, why)) {
        result.error = why;
        return result;
    }
    static std::atomic<int> serial{0};
    const QDateTime now = QDateTime::currentDateTime();
    const std::string name = QFile::encodeName(now.toString(QStringLiteral("yyyyMMdd-HHmmss-zzz")) + QLatin1Char('-') +
                                               QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-') +
                                               QString::number(++serial) + QLatin1Char('-'))
                                 .toStdString() +
                             std::filesystem::path(path).filename().string();
    if (std::string error = writePrivate(folder, name, file.bytes); !error.empty()) {
        result.error = error;
        return result;
    }
    result.kept = true;
    result.path = folder + "/" + name;
    result.time = now.toString(QStringLiteral("HH:mm")).toStdString();
    return result;
}

std::vector<PutAsideStore::Copy> PutAsideStore::list() const {
    std::vector<Copy> copies;
    const QDir dir(folder_);
    for (const QFileInfo& f : dir.entryInfoList({QStringLiteral("*") + kSuffix}, QDir::Files)) {
        if (f.isSymLink()) continue; // not one we wrote
        Copy c;
        c.path = f.absoluteFilePath();
        c.kept = f.lastModified();
        c.command = commandOf(f.fileName());
        const RecoverySummary summary = summarizeRecovery(read(c));
        c.currentFile = summary.currentFile;
        c.title = summary.title;
        c.bents = summary.bents;
        copies.push_back(std::move(c));
    }
    std::sort(copies.begin(), copies.end(),
              [](const Copy& a, const Copy& b) { return a.kept != b.kept ? a.kept > b.kept : a.path > b.path; });
    return copies;
}

std::vector<PutAsideStore::Copy> PutAsideStore::claimLeftByExit() {
    std::vector<Copy> claimed;
    for (Copy& c : list()) {
        if (!c.path.endsWith(kUnoffered + kSuffix)) continue;
        const QString offered = c.path.chopped(kUnoffered.size() + kSuffix.size()) + kSuffix;
        // The rename is the claim: two windows starting at once offer it once.
        if (::rename(QFile::encodeName(c.path).constData(), QFile::encodeName(offered).constData()) != 0) continue;
        c.path = offered;
        claimed.push_back(std::move(c));
    }
    return claimed;
}

std::string PutAsideStore::read(const Copy& copy) {
    const ReadResult r = readRegularFile(QFile::encodeName(copy.path).toStdString(), kMaxCopyBytes);
    return r.errorNumber ? std::string() : r.bytes;
}

bool PutAsideStore::remove(const Copy& copy) { return QFile::remove(copy.path); }

void PutAsideStore::prune(int maxDays, int maxCount) {
    const QDateTime oldest = QDateTime::currentDateTime().addDays(-maxDays);
    const auto copies = list();
    for (size_t i = 0; i < copies.size(); ++i)
        if (static_cast<int>(i) >= maxCount || copies[i].kept < oldest) remove(copies[i]);
}

PutAside putAsideInStore(const std::string& bytes, const std::string& command) {
    PutAsideStore store;
    PutAside kept = store.keep(bytes, command);
    if (kept.kept) store.prune();
    return kept;
}

} // namespace tw
