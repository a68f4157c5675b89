// SPDX-License-Identifier: Apache-2.0
// The main window on a freshly loaded program, shown at the smallest screen
// size it is made for; a test class mixes it in and opens it for each test.
#pragma once

#include "../unit/FakePorts.h"

#include "gui/MainWindow.h"

#include <QTest>

#include <memory>

namespace tw::test {

struct ShownWindow {
    std::unique_ptr<Program> app;
    std::unique_ptr<MainWindow> window;

    void openWindow() {
        app = std::make_unique<Program>(TW_PROGRAM_DIR);
        window = std::make_unique<MainWindow>(**app);
        (*app)->actions.onChange([this](const ChangeSet& changes) {
            if (window) window->refresh(changes);
        });
        window->resize(1366, 768);
        window->refresh();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    void closeWindow() {
        window.reset();
        app.reset();
    }
};

} // namespace tw::test
