// SPDX-License-Identifier: Apache-2.0
#include "gui/DiskWatch.h"

#include "core/form/FileCommands.h"
#include "gui/MainWindow.h"
#include "gui/NoticeBar.h"
#include "platform/QtText.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

namespace tw {

namespace {
constexpr int kSettleMs = 300;
} // namespace

DiskWatch::DiskWatch(App& app, MainWindow& window, QObject* parent) : QObject(parent), app_(app), window_(window) {
    settle_.setSingleShot(true);
    settle_.setInterval(kSettleMs);
    connect(&settle_, &QTimer::timeout, this, [this] { look(); });
    // A program that saves by a rename replaces the file: the folder tells of that.
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, [this] { settle_.start(); });
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { settle_.start(); });
}

void DiskWatch::changed() {
    const auto& known = app_.session().onDisk();
    const std::string path = known ? known->path : std::string();
    if (path != path_) follow(path);
    if (!path.empty()) holdOpen(path); // a save by a rename made a new file of it
}

void DiskWatch::follow(const std::string& path) {
    if (!watcher_.files().isEmpty()) watcher_.removePaths(watcher_.files());
    if (!watcher_.directories().isEmpty()) watcher_.removePaths(watcher_.directories());
    path_ = path;
    told_.clear();
    if (changedBar_) changedBar_->dismiss();
    if (openBar_) openBar_->dismiss();
    if (path.empty()) return;
    watcher_.addPath(q(path));
    watcher_.addPath(QFileInfo(q(path)).absolutePath());
}

void DiskWatch::holdOpen(const std::string& path) {
    if (!hold_.hold(path)) return;
    if (openBar_) return;
    openBar_ = new NoticeBar(QStringLiteral("alreadyOpen"), q(openTwiceText(path)));
    connect(openBar_->addButton(tr("Close"), QStringLiteral("Close")), &QPushButton::clicked, openBar_.data(),
            &NoticeBar::dismiss);
    window_.addNotice(openBar_);
}

void DiskWatch::look() {
    if (path_.empty()) return;
    // A file replaced by a rename is a new file: the watcher must be told of it again.
    if (!watcher_.files().contains(q(path_))) watcher_.addPath(q(path_));
    holdOpen(path_); // and held again, for the next window to see
    const auto now = changedOnDiskNow(app_.session());
    if (!now || now->bytes == told_) return;
    told_ = now->bytes;
    if (changedBar_) changedBar_->dismiss();
    changedBar_ = new NoticeBar(QStringLiteral("changedOnDisk"), q(changedOnDiskText(now->path)));
    changedBar_->text()->setToolTip(q(now->path));
    NoticeBar* bar = changedBar_;
    connect(bar->addButton(tr("Reload"), QStringLiteral("Reload")), &QPushButton::clicked, this, [this, bar] {
        bar->dismiss();
        app_.actions.reload();
    });
    // Keep mine: the bar goes; a Save will still ask before it writes over their change.
    connect(bar->addButton(tr("Keep mine"), QStringLiteral("KeepMine")), &QPushButton::clicked, bar,
            &NoticeBar::dismiss);
    window_.addNotice(bar);
}

} // namespace tw
