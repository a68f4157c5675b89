// SPDX-License-Identifier: Apache-2.0
// The last resort of the window: a failure that escapes the handling of an
// event (the user's actions have their own) is told, and the window stays
// up with the project in it.
#pragma once

#include <QApplication>

#include <functional>
#include <string>

namespace tw {

class GuardedApplication : public QApplication {
    Q_OBJECT
  public:
    using QApplication::QApplication;

    // How a failure is told; the window's standard error box.
    std::function<void(const std::string&)> onFailure;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace tw
