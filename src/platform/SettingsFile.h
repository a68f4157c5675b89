// SPDX-License-Identifier: Apache-2.0
// The user's settings file (~/.config/Norvale/Tarnwick.conf, QSettings'
// format), read and written carefully: only a regular file of a settings
// file's size is read, so a pipe or a device there never stops a command;
// a write goes to a temporary file renamed into place, through a link to
// the file it names, and never over a device or a pipe.
#pragma once

#include "core/ports.h"

#include <QString>

#include <memory>
#include <string>

namespace tw {

class SettingsFile {
  public:
    // `path` empty: where QSettings keeps the organisation's and program's settings.
    explicit SettingsFile(QString path = {});
    ~SettingsFile();
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;

    // A value by its key ("Usage/UsageInfo/LastTime"); empty when there is none or the file cannot be read.
    std::string read(const std::string& key);
    // Sets one value, keeping every other one as the file holds it now.
    WriteResult write(const std::string& key, const std::string& value);
    QString path() const { return path_; }
    // Why the file cannot be used, in words for the user; empty while it can.
    const std::string& problem() const { return problem_; }

  private:
    // The file's bytes now; nothing (and the problem told) when it cannot be read.
    bool current(std::string& bytes);

    class Copy;
    QString path_;
    std::string problem_;
    std::unique_ptr<Copy> read_; // the copy last read, and its bytes
    std::string readBytes_;
};

} // namespace tw
