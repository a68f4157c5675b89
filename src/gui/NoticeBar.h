// SPDX-License-Identifier: Apache-2.0
// A bar at the top of the main window that tells something needing no
// answer now: an icon, the words, and the buttons of what the user may do.
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace tw {

class NoticeBar : public QFrame {
    Q_OBJECT
  public:
    NoticeBar(const QString& name, const QString& text, QWidget* parent = nullptr);

    QLabel* text() const { return text_; }
    // A button at the bar's end, named `name` + `objectSuffix`.
    QPushButton* addButton(const QString& caption, const QString& objectSuffix);
    // The bar has done its work.
    void dismiss();

  private:
    QString name_;
    QLabel* text_;
};

} // namespace tw
