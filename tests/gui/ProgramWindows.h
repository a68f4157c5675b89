// SPDX-License-Identifier: Apache-2.0
// The whole program's windows on a fresh program, with its boxes and dialogs
// answered by the test; a test class mixes it in, makes the program in
// init() and ends it in cleanup().
#pragma once

#include "../unit/FakePorts.h"

#include "gui/FormWindows.h"
#include "gui/GuiPorts.h"
#include "gui/MainWindow.h"
#include "gui/WindowSet.h"

#include <QApplication>
#include <QPrinter>
#include <QTest>

#include <memory>
#include <string>
#include <vector>

namespace tw::test {

// Boxes and dialogs stay in the test, the rest of the window is real.
class TestPorts : public GuiPorts {
  public:
    std::vector<std::string> messages;
    MsgAnswer message(const std::string& text, const std::string&, MsgButtons b, MsgIcon) override {
        messages.push_back(text);
        return b == MsgButtons::YesNo ? MsgAnswer::Yes : MsgAnswer::OK;
    }
    std::optional<std::string> fileDialog(const FileDialogRequest&) override { return std::nullopt; }
    QString pdf; // where the printer dialog sends the print
  protected:
    bool choosePrinter(QPrinter& printer) override {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdf);
        return true;
    }
};

struct ProgramWindows {
    std::unique_ptr<TestPorts> ports;
    std::unique_ptr<FakePorts> system;
    std::unique_ptr<App> app;
    std::unique_ptr<WindowSet> windows;

    MainWindow& main() { return windows->main(); }
    void makeProgram() {
        ports = std::make_unique<TestPorts>();
        system = std::make_unique<FakePorts>();
        app = std::make_unique<App>(*ports, *system, TW_PROGRAM_DIR);
        windows = std::make_unique<WindowSet>(*app, *ports);
    }
    // The splash, its OK, and the main form shown.
    // A window manager hands the focus over in its own time: each window is
    // waited for until it has it, so that a late activation of the splash
    // cannot take the keys a test types into the main window.
    void startMainWindow() {
        app->start();
        if (QWidget* splash = windows->window(FormId::Splash)) QVERIFY(QTest::qWaitForWindowActive(splash));
        app->actions.click(Target(FormId::Splash, Ctl::cmdOK));
        QVERIFY(QTest::qWaitForWindowActive(&main()));
        QApplication::processEvents();
    }
    void endProgram() {
        windows.reset();
        app.reset();
        system.reset();
        ports.reset();
    }
};

} // namespace tw::test
