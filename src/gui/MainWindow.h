// The main form: tabs of titled sections, the bent table, menus and toolbar.
// It mirrors the form data and forwards every event to the core.
#pragma once

#include "core/App.h"
#include "gui/Binder.h"

#include <QMainWindow>

class QTableWidget;
class QTabWidget;
class QGridLayout;
class QVBoxLayout;

namespace tw {

class DrawingPane;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow(App& app, std::function<void()> refreshAll);

    // Copies the form data into the widgets.
    void refresh();
    Binder& binder() { return binder_; }
    QTableWidget* grid() const { return grid_; }
    QTabWidget* tabs() const { return tabs_; }
    DrawingPane* drawingPane() const { return drawing_; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* generalTab();
    QWidget* capTab();
    QWidget* wingwallTab();
    QWidget* bearingTab();
    QWidget* pileTab();
    QWidget* bentTableTab();
    QWidget* sketchPanel();
    void buildMenus();
    void buildToolbar();
    void syncGrid();
    void gridSelectionChanged();

    // Helpers that lay out one prompt row.
    void row(QGridLayout* grid, const QString& prompt, QWidget* field, const QString& unit = {});
    QWidget* numberRows(Ctl label, Ctl field, int count, QWidget* parent);

    App& app_;
    Binder binder_;
    QTabWidget* tabs_ = nullptr;
    QTableWidget* grid_ = nullptr;
    DrawingPane* drawing_ = nullptr;
    bool syncing_ = false;
};

} // namespace tw
