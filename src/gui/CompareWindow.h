// SPDX-License-Identifier: Apache-2.0
// File > Compare With...: what differs between a project file and the
// project on the form, in a window of its own that asks nothing.
#pragma once

#include <QDialog>

class QPlainTextEdit;
class QLabel;

namespace tw {

class App;

class CompareWindow : public QDialog {
    Q_OBJECT
  public:
    // Compares `file` (before) with the project on the form of `app` (after).
    CompareWindow(const App& app, const QString& file, QWidget* parent = nullptr);
    QPlainTextEdit* list() const { return list_; }

  private:
    QLabel* heading_ = nullptr;
    QPlainTextEdit* list_ = nullptr;
};

} // namespace tw
