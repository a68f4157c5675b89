// SPDX-License-Identifier: Apache-2.0
// Watches the project's file while the window holds it. When another
// program changes it, a bar says so (Reload / Keep mine; a Save over that
// change asks first). When another Tarnwick window already holds the same
// file, a bar says that too: the two would save over each other's work.
#pragma once

#include "core/app/App.h"
#include "platform/OpenFileHold.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <string>

namespace tw {

class MainWindow;
class NoticeBar;

class DiskWatch : public QObject {
    Q_OBJECT
  public:
    DiskWatch(App& app, MainWindow& window, QObject* parent = nullptr);

    // After each change: the file the project was last read from or written to may be another now.
    void changed();
    // Looks at the file now (the watcher calls it a moment after the file changed).
    void look();

  private:
    void follow(const std::string& path);
    void holdOpen(const std::string& path);

    App& app_;
    MainWindow& window_;
    QFileSystemWatcher watcher_;
    QTimer settle_;     // a program writing a file changes it many times
    std::string path_;  // the file watched
    std::string told_;  // its bytes last told of
    OpenFileHold hold_; // tells another window that this one holds the file
    QPointer<NoticeBar> changedBar_, openBar_;
};

} // namespace tw
