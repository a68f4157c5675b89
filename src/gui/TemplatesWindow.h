// SPDX-License-Identifier: Apache-2.0
// File > New from Template...: the user's templates and the shipped ones,
// each with its bent type and where it lies; choosing one starts a new
// project from it (New's question first, as New asks it).
#pragma once

#include "platform/TemplateStore.h"

#include <QWidget>

class QPushButton;
class QTreeWidget;

namespace tw {

class App;

class TemplatesWindow : public QWidget {
    Q_OBJECT
  public:
    TemplatesWindow(App& app, QWidget* parent);

    // Lists the templates as they are on disk now.
    void refresh();
    QTreeWidget* list() const { return list_; }
    QPushButton* chooseButton() const { return choose_; }
    // Starts a new project from the template selected; the window closes when it did.
    void chooseSelected();

  private:
    App& app_;
    TemplateStore store_;
    std::vector<TemplateEntry> entries_;
    QTreeWidget* list_;
    QPushButton* choose_;
};

} // namespace tw
