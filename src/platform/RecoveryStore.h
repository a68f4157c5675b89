// SPDX-License-Identifier: Apache-2.0
// Where the window keeps the project safe while it holds unsaved changes:
// one recovery file a session, in the per-user data folder. A lock on a
// file of its own marks a session that is running; the kernel lets go of
// it however the session ends, so a recovery file whose lock is free was
// left by a session that ended without saving -- a crash, a kill, a power
// cut, or an exit with unsaved changes.
#pragma once

#include "core/ports.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace tw {

class RecoveryStore {
  public:
    // A recovery file left by an earlier session, held for this one until it is restored or discarded.
    struct Left {
        QString path;
        QDateTime written;
        std::string currentFile; // the project's file, when it had one
        std::string title;       // its first title line
        // Why it cannot be restored; then it is set aside at `path` and offered no more.
        std::string problem;
    };

    // `folder` empty: the per-user data folder (QStandardPaths::AppLocalDataLocation).
    explicit RecoveryStore(QString folder = {});
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore&) = delete;
    RecoveryStore& operator=(const RecoveryStore&) = delete;

    // Marks this session as running; false when the folder cannot be used.
    bool open();
    QString folder() const { return folder_; }
    // This session's recovery file.
    QString path() const;

    // Writes this session's recovery file at once (through a temporary file and a rename).
    WriteResult write(const std::string& bytes);
    // Removes this session's recovery file, when there is one.
    void remove();
    // The normal end of the session: the lock goes, the recovery file (if
    // any) stays for the next session to offer.
    void close();

    // The recovery files that ended sessions left, newest first; each is
    // held for this session, so that no other one offers it too. One that
    // cannot be restored is set aside at once (see setAside) and comes with
    // its problem.
    std::vector<Left> claimLeft();
    // The bytes of a left file; empty when it cannot be read.
    static std::string read(const Left& left);
    // Done with a left file: restored or discarded, it goes.
    void discard(const Left& left);
    // A left file that cannot be restored keeps its bytes under a name that
    // is offered no more (NAME.ebnt.unreadable); `left.path` becomes that name.
    void setAside(Left& left);

  private:
    QString folder_;
    QString id_;
    int lock_ = -1;
    std::vector<std::pair<QString, int>> claimed_; // left files and the locks held on them
};

} // namespace tw
