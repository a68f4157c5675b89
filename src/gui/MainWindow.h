// The main form: tabs of titled sections, the bent table on a page of its
// own, menus, toolbar and status bar. It mirrors the form data and hands
// every user action to the core.
#pragma once

#include "core/App.h"
#include "gui/Binder.h"

#include <QMainWindow>

class QLabel;
class QTabWidget;
class QVBoxLayout;

namespace tw {

class BentTablePage;
class DrawingPane;
class FrozenColumnTable;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit MainWindow(App& app);

    // Copies the form data into the widgets.
    void refresh();
    Binder& binder() { return binder_; }
    FrozenColumnTable* grid() const;
    QTabWidget* tabs() const { return tabs_; }
    DrawingPane* drawingPane() const { return drawing_; }
    // A bar across the top of the window, above the form (a message that needs no answer now).
    void addNotice(QWidget* bar);
    // The size the window opens at on a screen with room for it.
    static QSize preferredSize();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* sketchStrip();
    void buildMenus();
    void buildToolbar();
    void refreshTabs();
    void refreshStatus();

    App& app_;
    Binder binder_;
    QTabWidget* tabs_ = nullptr;
    BentTablePage* bentTable_ = nullptr;
    DrawingPane* drawing_ = nullptr;
    QVBoxLayout* notices_ = nullptr;
    QLabel* filePath_ = nullptr;
    std::string shownRunBase_;
    bool syncing_ = false;
};

} // namespace tw
