// SPDX-License-Identifier: Apache-2.0
#include "platform/RecoveryStore.h"

#include "core/Errors.h"
#include "core/form/Recovery.h"
#include "platform/FileRead.h"
#include "platform/SafeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tw {

namespace {

const QString kPrefix = QStringLiteral("recovery-");
const QString kSuffix = QStringLiteral(".ebnt");
const QString kSetAside = QStringLiteral(".unreadable");
// A project may be private: what is kept of it is the user's alone.
constexpr mode_t kFileMode = 0600;
constexpr mode_t kFolderMode = 0700;

QString lockOf(const QString& recoveryPath) {
    return recoveryPath.left(recoveryPath.size() - kSuffix.size()) + QStringLiteral(".lock");
}

// The lock of a session, taken without waiting; -1 while its session runs.
int takeLock(const QString& lockPath) {
    const int fd = ::open(QFile::encodeName(lockPath).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) return -1;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

void dropLock(const QString& lockPath, int fd) {
    ::unlink(QFile::encodeName(lockPath).constData());
    ::close(fd);
}

} // namespace

RecoveryStore::RecoveryStore(QString folder)
    : folder_(folder.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
                               : std::move(folder)) {}

RecoveryStore::~RecoveryStore() { close(); }

bool RecoveryStore::open() {
    if (lock_ >= 0) return true;
    if (folder_.isEmpty() || !QDir().mkpath(folder_)) return false;
    // Made by mkpath with the umask's mode, or by an earlier version: closed to others, when it is ours.
    const QByteArray folder = QFile::encodeName(folder_);
    struct stat st {};
    if (::stat(folder.constData(), &st) == 0 && st.st_uid == ::geteuid() && (st.st_mode & 07777) != kFolderMode)
        ::chmod(folder.constData(), kFolderMode);
    // What sessions that ended left and no longer need: a save's temporary
    // file cut short, the lock of a session that had nothing to keep.
    removeStaleTemporaries(QFile::encodeName(folder_).toStdString());
    for (const QFileInfo& f : QDir(folder_).entryInfoList({kPrefix + QStringLiteral("*.lock")}, QDir::Files)) {
        const QString p = f.absoluteFilePath();
        if (QFileInfo::exists(p.left(p.size() - 5) + kSuffix)) continue;
        if (const int fd = takeLock(p); fd >= 0) dropLock(p, fd);
    }
    id_ = QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-') +
          QString::number(QDateTime::currentMSecsSinceEpoch());
    lock_ = takeLock(lockOf(path()));
    return lock_ >= 0;
}

QString RecoveryStore::path() const { return QDir(folder_).filePath(kPrefix + id_ + kSuffix); }

WriteResult RecoveryStore::write(const std::string& bytes) {
    if (lock_ < 0)
        return {err::kPathNotFound, "Path not found: the folder " + folder_.toStdString() + " cannot be used"};
    return replacePrivateFile(QFile::encodeName(path()).toStdString(), bytes);
}

void RecoveryStore::remove() {
    if (lock_ >= 0) QFile::remove(path());
}

void RecoveryStore::close() {
    for (const auto& [left, fd] : claimed_)
        ::close(fd);
    claimed_.clear();
    if (lock_ < 0) return;
    dropLock(lockOf(path()), lock_);
    lock_ = -1;
}

std::vector<RecoveryStore::Left> RecoveryStore::claimLeft() {
    std::vector<Left> found;
    const QDir dir(folder_);
    const auto files = dir.entryInfoList({kPrefix + QStringLiteral("*")}, QDir::Files | QDir::Hidden);
    for (const QFileInfo& f : files) {
        const QString p = f.absoluteFilePath();
        const bool recovery = p.endsWith(kSuffix);
        if (p == path() || p == lockOf(path())) continue;
        if (std::any_of(claimed_.begin(), claimed_.end(), [&](const auto& c) { return c.first == p; })) continue;
        if (!recovery) continue;
        const int fd = takeLock(lockOf(p));
        if (fd < 0) continue; // its session still runs, or another one offers it
        claimed_.emplace_back(p, fd);
        Left left{p, f.lastModified(), {}, {}, {}};
        auto summary = summarizeRecovery(read(left));
        left.currentFile = std::move(summary.currentFile);
        left.title = std::move(summary.title);
        left.problem = std::move(summary.problem);
        if (!left.problem.empty()) setAside(left);
        found.push_back(std::move(left));
    }
    std::sort(found.begin(), found.end(), [](const Left& a, const Left& b) { return a.written > b.written; });
    return found;
}

std::string RecoveryStore::read(const Left& left) {
    // Far more than the largest project needs; anything larger, or no regular file, is not ours.
    return readRegularFile(QFile::encodeName(left.path).toStdString(), 16 * 1024 * 1024).bytes;
}

void RecoveryStore::setAside(Left& left) {
    const QString aside = left.path + kSetAside;
    if (!QFile::rename(left.path, aside)) return; // still offered, to be discarded
    ::chmod(QFile::encodeName(aside).constData(), kFileMode);
    const QString was = left.path;
    left.path = aside;
    const auto it = std::find_if(claimed_.begin(), claimed_.end(), [&](const auto& c) { return c.first == was; });
    if (it == claimed_.end()) return;
    dropLock(lockOf(was), it->second);
    claimed_.erase(it);
}

void RecoveryStore::discard(const Left& left) {
    QFile::remove(left.path);
    const auto it = std::find_if(claimed_.begin(), claimed_.end(), [&](const auto& c) { return c.first == left.path; });
    if (it == claimed_.end()) return;
    dropLock(lockOf(left.path), it->second);
    claimed_.erase(it);
}

} // namespace tw
