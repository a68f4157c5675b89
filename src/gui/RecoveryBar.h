// SPDX-License-Identifier: Apache-2.0
// The bar at the top of the main window that offers the unsaved work a
// session left behind: Restore brings it back on the form, Discard lets it go.
#pragma once

#include "core/app/App.h"
#include "gui/NoticeBar.h"
#include "platform/RecoveryStore.h"

#include <vector>

class QPushButton;

namespace tw {

class MainWindow;

class RecoveryBar : public NoticeBar {
    Q_OBJECT
  public:
    RecoveryBar(App& app, RecoveryStore& store, RecoveryStore::Left left, QWidget* parent = nullptr);

    QPushButton* restoreButton() const { return restore_; }
    QPushButton* discardButton() const { return discard_; }

  private:
    void restore();
    void discard();

    App& app_;
    RecoveryStore& store_;
    RecoveryStore::Left left_;
    QPushButton* restore_;
    QPushButton* discard_;
};

// The work that ended sessions left, offered in bars above the form: a
// RecoveryBar each (returned), and for a file that cannot be restored, a bar
// that says so once and where its bytes are kept.
std::vector<RecoveryBar*> offerLeftWork(App& app, RecoveryStore& store, MainWindow& window);

} // namespace tw
