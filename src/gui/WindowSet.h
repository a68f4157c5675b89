// SPDX-License-Identifier: Apache-2.0
// Every window of the program and what showing, closing and placing a form
// means for them: the main window and the small windows, each a mirror of
// its form's data, refreshed after every user action.
#pragma once

#include "core/form/Changes.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

class QWidget;

namespace tw {

class App;
class FormWindow;
class GuiPorts;
class MainWindow;
class PictureWindow;

class WindowSet {
  public:
    WindowSet(App& app, GuiPorts& ports);
    ~WindowSet();

    // The main window, built when first wanted: the splash shows before it.
    MainWindow& main();
    bool mainBuilt() const { return main_ != nullptr; }
    // Runs once, when the main window has been built.
    std::function<void(MainWindow&)> onMainBuilt;
    // The window of a small form (frmSplash, frmAbout, frmIPrinter, frmViewTest, frmPicView).
    FormWindow* window(FormId form);
    // Runs once when the main window is first shown (opening a file named on the command line).
    std::function<void()> onMainShown;
    // Runs when the main form has unloaded: the program ends.
    std::function<void()> onMainClosed;

  private:
    void show(FormId form);
    void close(FormId form);
    void refreshAll(const ChangeSet& changes);

    App& app_;
    GuiPorts& ports_;
    std::unique_ptr<MainWindow> main_;
    std::map<FormId, FormWindow*> windows_; // made when first wanted
};

} // namespace tw
