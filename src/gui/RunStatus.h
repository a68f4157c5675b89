// SPDX-License-Identifier: Apache-2.0
// The status bar's part in Run: while Run waits for the engine or the
// drawing batch program, what it waits for and a Cancel; afterwards, a
// word about a batch program that did not do its work. Both stand in
// permanent widgets of their own, so no passing status message hides them.
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
    // A word that stands until the next one; empty clears it.
    void notice(const std::string& text);

    QPushButton* cancelButton() const { return cancel_; }
    QString waitText() const;
    QString noticeText() const;

  private:
    void refresh();

    QLabel* noticeIcon_;
    QLabel* notice_;
    QLabel* waiting_;
    QPushButton* cancel_;
    std::vector<std::pair<QString, std::function<void()>>> waits_;
};

} // namespace tw
