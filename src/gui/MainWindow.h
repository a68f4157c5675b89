// SPDX-License-Identifier: Apache-2.0
// The main form: tabs of titled sections, the bent table on a page of its
// own, menus, toolbar and status bar. It mirrors the form data and hands
// every user action to the core.
#pragma once

#include "core/app/App.h"
#include "gui/Binder.h"

#include <QIcon>
#include <QMainWindow>

#include <map>
#include <string>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

namespace tw {

class BentTablePage;
class DrawingPane;
class FrozenColumnTable;
class PutAsideWindow;
class RunStatus;
class StatusMessages;
class RunOutputsWindow;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit MainWindow(App& app);

    // Copies the form data into the widgets: all of it, or what changed.
    void refresh();
    void refresh(const ChangeSet& changes);
    Binder& binder() { return binder_; }
    // The bent table's grid (its page built if it is not yet).
    FrozenColumnTable* grid();
    // Every page built now; otherwise each is built when first shown.
    void buildAllPages();
    // The widget bound to a control, its page built if need be.
    QWidget* widgetFor(const CtlId& id);
    QTabWidget* tabs() const { return tabs_; }
    DrawingPane* drawingPane() const { return drawing_; }
    // A bar across the top of the window, above the form (a message that needs no answer now).
    void addNotice(QWidget* bar);
    // Unsaved work was put aside (`copy`), or could not be (`copy` empty): a bar that says so.
    void tellPutAside(const QString& text, const QString& copy);
    // File > Put-Aside Work...: every copy kept, non-modal.
    void showPutAsideWork();
    PutAsideWindow* putAsideWork() const { return putAsideWork_; }
    // A word about a field at its caret, for a moment (a key it refused).
    void showBalloon(const QString& text, const CtlId& field);
    // The status bar's one place for words, and Run's wait beside it.
    StatusMessages* messages() const { return messages_; }
    RunStatus* runStatus() const { return runStatus_; }
    // Its one click that brings stale closing values up to date.
    QPushButton* bringUpToDateButton() const;
    // View > Run Outputs: the list of the last Run's outputs, non-modal.
    void showRunOutputs();
    RunOutputsWindow* runOutputs() const { return runOutputs_; }
    // Edit > Copy: the selected bent rows on the clipboard, heading first,
    // as tab-separated text and as CSV.
    void copyBents();
    // Edit > Paste Bents: the clipboard's rows through Add, one step of the history.
    void pasteBents();
    // File > Compare With...: the differences from `file` to the form's project, in a window of their own.
    void compareWith(const QString& file);
    // What a file dropped on the window does: a project opens as Open opens
    // it, a drawing opens in the drawing viewer, anything else is refused
    // in the status bar.
    void openDropped(const QString& path);
    // The size the window opens at on a screen with room for it.
    static QSize preferredSize();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    QWidget* sketchStrip();
    QIcon commandIcon(const char* theme, const char* key);
    void buildMenus();
    void buildToolbar();
    void buildViewMenu();
    void buildPage(int tab);
    BentTablePage* bentTablePage();
    void refreshTabs();
    void refreshStatus();
    void refreshTitle();
    void refreshMenus();
    void lookAt(const ChangeSet& changes);
    void placeFocus();

    App& app_;
    Binder binder_;
    QTabWidget* tabs_ = nullptr;
    BentTablePage* bentTable_ = nullptr;
    DrawingPane* drawing_ = nullptr;
    QVBoxLayout* notices_ = nullptr;
    QLabel* filePath_ = nullptr;
    QMenu* help_ = nullptr;
    RunOutputsWindow* runOutputs_ = nullptr;
    PutAsideWindow* putAsideWork_ = nullptr;
    StatusMessages* messages_ = nullptr;
    RunStatus* runStatus_ = nullptr;
    // Menu items and toolbar buttons that mirror a menu control of the form (Undo, Redo).
    std::vector<std::pair<Ctl, QAction*>> mirrored_;
    std::map<std::string, QIcon> icons_; // each command's icon, looked up once
    std::vector<QAction*> recent_;       // mnuRecentFile(0..7)
    std::string shownRunBase_;
    std::vector<bool> built_; // each tab's page
    bool syncing_ = false;
};

} // namespace tw
