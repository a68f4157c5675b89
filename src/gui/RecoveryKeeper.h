// SPDX-License-Identifier: Apache-2.0
// Keeps the window's unsaved work safe: within a second or two of a change
// the project goes to this session's recovery file, for as long as it
// differs from what was last saved, opened or started afresh; once it no
// longer does (a save, New), the file goes.
#pragma once

#include "core/app/App.h"
#include "platform/RecoveryStore.h"

#include <QObject>
#include <QTimer>

#include <string>

namespace tw {

class RecoveryKeeper : public QObject {
    Q_OBJECT
  public:
    RecoveryKeeper(App& app, RecoveryStore& store, QObject* parent = nullptr);

    // After each change; cheap, the project is looked at a moment later.
    void changed(const ChangeSet& changes);
    // Brings the recovery file in line with the project now.
    void keep();
    // The normal end of the program: the recovery file stays only while it
    // holds changes not saved, for the next start to offer.
    void finish();

  private:
    App& app_;
    RecoveryStore& store_;
    QTimer timer_;
    std::string kept_; // what the recovery file holds; empty when there is none
    bool failing_ = false;
};

} // namespace tw
