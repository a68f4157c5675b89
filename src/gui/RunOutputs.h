// SPDX-License-Identifier: Apache-2.0
// View > Run Outputs: every output of the last Run in one list (name, size,
// time), each a double-click from its text in a read-only, printable
// preview, the drawing from the program's viewer. Beside the printer
// window, which stays as it always was.
#pragma once

#include <QWidget>

#include <functional>
#include <string>

class QPlainTextEdit;
class QTreeWidget;

namespace tw {

class App;

class RunOutputsWindow : public QWidget {
    Q_OBJECT
  public:
    // `openDrawing` shows a drawing in the viewer.
    RunOutputsWindow(const App& app, std::function<void(const std::string&)> openDrawing, QWidget* parent);

    // Lists the outputs as they are on disk now.
    void refresh();
    QTreeWidget* list() const { return list_; }
    // Opens the output of row `row`: the drawing in the viewer, any other as text.
    void open(int row);

  private:
    const App& app_;
    std::function<void(const std::string&)> openDrawing_;
    QTreeWidget* list_;
};

// A listing as plain text, read-only, with Print.
class TextPreview : public QWidget {
    Q_OBJECT
  public:
    TextPreview(const QString& file, QWidget* parent);
    QPlainTextEdit* text() const { return text_; }
    void print();

  private:
    QString file_;
    QPlainTextEdit* text_;
};

} // namespace tw
