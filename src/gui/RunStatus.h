// SPDX-License-Identifier: Apache-2.0
// The status bar's part in Run: while Run waits for the engine or the
// drawing batch program, what it waits for and a Cancel, in a permanent
// widget of its own at the bar's right.
#pragma once

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QStatusBar;

namespace tw {

class RunStatus : public QWidget {
    Q_OBJECT
  public:
    // Placed in `bar` as a permanent widget.
    explicit RunStatus(QStatusBar* bar);

    // A wait begins: its text and a Cancel that calls `cancel`. Waits nest; the newest shows.
    void begin(const std::string& what, std::function<void()> cancel);
    void end();

    QPushButton* cancelButton() const { return cancel_; }
    QString waitText() const;

  private:
    void refresh();

    QLabel* waiting_;
    QPushButton* cancel_;
    std::vector<std::pair<QString, std::function<void()>>> waits_;
};

} // namespace tw
