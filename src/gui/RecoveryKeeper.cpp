// SPDX-License-Identifier: Apache-2.0
#include "gui/RecoveryKeeper.h"

#include "core/form/Recovery.h"

namespace tw {

namespace {
// The longest a change waits before it is kept; typing goes on meanwhile.
constexpr int kDelayMs = 1000;
} // namespace

RecoveryKeeper::RecoveryKeeper(App& app, RecoveryStore& store, QObject* parent)
    : QObject(parent), app_(app), store_(store) {
    timer_.setSingleShot(true);
    timer_.setInterval(kDelayMs);
    connect(&timer_, &QTimer::timeout, this, [this] { keep(); });
}

void RecoveryKeeper::changed(const ChangeSet& changes) {
    if (!changes.touchesProject()) return;
    // Not restarted by every key: steady typing is still kept once a second.
    if (!timer_.isActive()) timer_.start();
}

void RecoveryKeeper::keep() {
    timer_.stop();
    // Before the main form has loaded (the splash) there is no project yet to keep.
    if (!app_.main().loaded || !app_.modified()) {
        if (!kept_.empty()) store_.remove();
        kept_.clear();
        return;
    }
    std::string bytes = composeRecovery(app_.session());
    if (bytes == kept_) return;
    const WriteResult w = store_.write(bytes);
    if (w.errorNumber) {
        if (!failing_) app_.user().notice("Unsaved changes cannot be kept safe: " + w.error);
        failing_ = true;
        return;
    }
    if (failing_) app_.user().notice("");
    failing_ = false;
    kept_ = std::move(bytes);
}

void RecoveryKeeper::finish() {
    keep();
    store_.close();
}

} // namespace tw
