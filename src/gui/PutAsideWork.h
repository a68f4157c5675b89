// SPDX-License-Identifier: Apache-2.0
// Work put aside before a legacy command discarded it: the bar that says
// so at once (Restore, Dismiss), and File > Put-Aside Work..., the list of
// every copy kept (Restore, Delete).
#pragma once

#include "gui/NoticeBar.h"
#include "platform/PutAsideStore.h"

#include <QWidget>

#include <functional>

class QPushButton;
class QTreeWidget;

namespace tw {

class App;

// Brings the project of a put-aside copy back on the form, unsaved; false
// (with the error box shown) when the copy cannot be read.
bool restorePutAside(App& app, const QString& copy, QWidget* parent);

class PutAsideBar : public NoticeBar {
    Q_OBJECT
  public:
    // `copy` empty: the work could not be kept, and the bar only says why.
    PutAsideBar(App& app, const QString& text, const QString& copy, QWidget* parent = nullptr);
    QPushButton* restoreButton() const { return restore_; }

  private:
    QPushButton* restore_ = nullptr;
};

class PutAsideWindow : public QWidget {
    Q_OBJECT
  public:
    PutAsideWindow(App& app, QWidget* parent);

    // Lists the copies as they are on disk now, newest first.
    void refresh();
    QTreeWidget* list() const { return list_; }
    void restoreSelected();
    // Asks first: a deleted copy cannot be brought back.
    void deleteSelected();
    // The question before a delete; a test answers it.
    std::function<bool(const QString&)> confirm;

  private:
    const PutAsideStore::Copy* selected() const;

    App& app_;
    PutAsideStore store_;
    std::vector<PutAsideStore::Copy> copies_;
    QTreeWidget* list_;
    QPushButton* restore_;
    QPushButton* delete_;
};

} // namespace tw
