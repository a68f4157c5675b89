// SPDX-License-Identifier: Apache-2.0
#include "platform/SettingsFile.h"

#include "core/Errors.h"
#include "platform/FileRead.h"
#include "platform/QtText.h"
#include "platform/SafeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace tw {

namespace {

// Far more than a page of settings; a larger file is not one of ours.
constexpr std::uintmax_t kMaxSettingsBytes = 1024 * 1024;

QString defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Norvale/Tarnwick.conf");
}

} // namespace

// QSettings at work on a copy of the bytes of its own, so that it never opens the file itself.
class SettingsFile::Copy {
  public:
    explicit Copy(const std::string& bytes) {
        ok_ = file_.open() &&
              file_.write(bytes.data(), static_cast<qint64>(bytes.size())) == static_cast<qint64>(bytes.size()) &&
              file_.flush();
        file_.close();
    }
    bool ok() const { return ok_; }
    QSettings settings() const { return QSettings(file_.fileName(), QSettings::IniFormat); }
    // By its name: QSettings renamed a new file over the one this object still holds open.
    std::string bytes() const {
        QFile written(file_.fileName());
        return written.open(QIODevice::ReadOnly) ? written.readAll().toStdString() : std::string();
    }

  private:
    QTemporaryFile file_;
    bool ok_ = false;
};

SettingsFile::SettingsFile(QString path) : path_(path.isEmpty() ? defaultPath() : std::move(path)) {}

SettingsFile::~SettingsFile() = default;

bool SettingsFile::current(std::string& bytes) {
    const std::string path = path_.toStdString();
    ReadResult r = readRegularFile(path, kMaxSettingsBytes);
    if (r.errorNumber == err::kFileNotFound) r = {};
    if (!r.errorNumber) {
        bytes = std::move(r.bytes);
        return true;
    }
    const std::string said = "Path/File access error: " + path;
    const std::string why =
        r.error.starts_with(said) ? path + r.error.substr(said.size()) : path + " cannot be used (" + r.error + ")";
    problem_ = "the settings file " + why + "; settings are neither read from it nor kept in it";
    return false;
}

std::string SettingsFile::read(const std::string& key) {
    std::string bytes;
    if (!current(bytes) || bytes.empty()) return {};
    // The same bytes as last time need no new copy.
    if (!read_ || readBytes_ != bytes) {
        read_ = std::make_unique<Copy>(bytes);
        readBytes_ = std::move(bytes);
    }
    return read_->ok() ? read_->settings().value(q(key)).toString().toStdString() : std::string();
}

WriteResult SettingsFile::write(const std::string& key, const std::string& value) {
    QDir().mkpath(QFileInfo(path_).absolutePath());
    // Beside the file, where QSettings takes its lock too: one change at a time, none lost.
    QLockFile lock(path_ + QStringLiteral(".lock"));
    lock.tryLock(5000);
    std::string bytes;
    if (!current(bytes)) return {err::kFileAccess, problem_};
    Copy copy(bytes);
    if (!copy.ok()) return {err::kFileAccess, "Path/File access error: no temporary file for the settings"};
    {
        QSettings s = copy.settings();
        s.setValue(q(key), q(value));
        s.sync();
        if (s.status() != QSettings::NoError)
            return {err::kFileAccess, "Path/File access error: the settings could not be written"};
    }
    return replaceFile(path_.toStdString(), copy.bytes());
}

} // namespace tw
