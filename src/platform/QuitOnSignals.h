// SPDX-License-Identifier: Apache-2.0
// The session may end us politely: SIGTERM at a logout or from `kill`,
// SIGINT from Ctrl+C in the terminal that started us, SIGHUP when that
// terminal goes. Each ends the event loop as Exit does, so that whoever
// runs it can keep the unsaved work and let go of its files before the end.
#pragma once

#include <QObject>

class QSocketNotifier;

namespace tw {

class QuitOnSignals : public QObject {
  public:
    // One at a time; the signals' previous handling comes back with its end.
    explicit QuitOnSignals(QObject* parent = nullptr);
    ~QuitOnSignals() override;
    // The signal that ended the loop, or 0.
    int received() const { return received_; }

  private:
    QSocketNotifier* notifier_ = nullptr;
    int received_ = 0;
};

} // namespace tw
