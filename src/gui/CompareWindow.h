// SPDX-License-Identifier: Apache-2.0
// File > Compare With...: what differs between a project file and the
// project on the form, in a window of its own that asks nothing. Its path box
// takes a typed path (Return compares) or one chosen with Browse.
#pragma once

#include "core/model/Measures.h"

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QLabel;

namespace tw {

class App;

class CompareWindow : public QDialog {
    Q_OBJECT
  public:
    // Compares `file` (before) with the project on the form of `app` (after);
    // with no file, waits for one in its path box.
    CompareWindow(const App& app, const QString& file, QWidget* parent = nullptr,
                  LengthUnits units = LengthUnits::FeetInches);
    // Compares another file, a path as typed: relative to the project's folder, "~" for home.
    void compare(const QString& file);
    // How lengths read; the list is made again in them.
    void setUnits(LengthUnits units);
    QLineEdit* pathBox() const { return path_; }
    QPlainTextEdit* list() const { return list_; }

  private:
    void browse();

    const App& app_;
    LengthUnits units_;
    QString file_; // the file compared, absolute
    QLineEdit* path_ = nullptr;
    QLabel* heading_ = nullptr;
    QPlainTextEdit* list_ = nullptr;
};

} // namespace tw
