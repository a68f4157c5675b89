// SPDX-License-Identifier: Apache-2.0
// The user's folder of put-aside work: copies of unsaved projects that a
// legacy command (Open, New, Exit, a reload) was about to discard. Each copy
// is a recovery file, written whole or not at all, readable by the user
// alone. The window offers them back; `tarnwick recover` lists and writes them.
#pragma once

#include "core/ports.h"

#include <QDateTime>
#include <QString>

#include <string>
#include <vector>

namespace tw {

class PutAsideStore {
  public:
    struct Copy {
        QString path;
        QDateTime kept;
        std::string command;     // what discarded the work: "Open", "New", "Exit", ...
        std::string currentFile; // the project's file, empty for one never saved
        std::string title;       // its first title line
        int bents = 0;
    };

    // `folder` empty: put-aside/ in the per-user data folder.
    explicit PutAsideStore(QString folder = {});
    static QString defaultFolder();
    QString folder() const { return folder_; }

    // Keeps `bytes` as a new copy; where, and when, or why not.
    PutAside keep(const std::string& bytes, const std::string& command);
    // Keeps a copy of the plain file at `path` (not a link, a pipe or a
    // device) in outputs/, the user's alone; nothing when there is no such
    // file or it is empty. Copies there are not work to offer back.
    PutAside keepFile(const std::string& path);
    // Every copy, newest first.
    std::vector<Copy> list() const;
    // The copies Exit left that no window has offered yet; from now on they count as offered.
    std::vector<Copy> claimLeftByExit();
    // The bytes of a copy; empty when it cannot be read.
    static std::string read(const Copy& copy);
    bool remove(const Copy& copy);
    // Copies older than `maxDays`, and those beyond the newest `maxCount`, go.
    void prune(int maxDays = 30, int maxCount = 50);

  private:
    // The folder, made if need be, for the user alone; false when it cannot be.
    bool ready(std::string& why) const;

    QString folder_;
};

// The store as the platform port offers it.
PutAside putAsideInStore(const std::string& bytes, const std::string& command);

} // namespace tw
