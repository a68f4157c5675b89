// SPDX-License-Identifier: Apache-2.0
// The status bar's one place for words: the newest message shows, alone,
// shortened with "..." when it is longer than the bar (its whole text in the
// tooltip). A word from the program stands until it is replaced or no
// longer holds; a passing message of the window's goes after a few seconds;
// the notes that stand while the project is as it is show when nothing
// newer does. Beside a word, its one-click action.
#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <string>

class QPushButton;

namespace tw {

class ElidedLabel;

class StatusMessages : public QWidget {
    Q_OBJECT
  public:
    explicit StatusMessages(QWidget* parent = nullptr);

    // A word from the program (a refused key, a batch program that drew
    // nothing); it stands until the next one. Empty clears it.
    void notice(const QString& text);
    // Beside the program's last word: open this drawing in the viewer.
    void offerViewer(const std::string& drawing);
    std::function<void(const std::string&)> openViewer;
    // A passing word of the window's ("2 bent rows copied").
    void say(const QString& text, int milliseconds = 10000);
    // What stands while the project is as it is; `stale`: its closing values
    // are out of date, and one click brings them up to date.
    void setStanding(const QString& text, bool stale);
    std::function<void()> bringUpToDate;

    // The words shown now, whole.
    QString shownText() const;
    // The program's word standing now, shown or not.
    QString noticeText() const { return notice_.text; }
    QPushButton* viewerButton() const { return viewer_; }
    QPushButton* bringUpToDateButton() const { return bring_; }

  private:
    void refresh();

    struct Word {
        QString text;
        quint64 order = 0;
    };
    Word notice_, said_;
    QString standing_;
    bool stale_ = false;
    std::string offered_;
    quint64 next_ = 1;
    QTimer passing_;
    ElidedLabel* label_;
    QPushButton* viewer_;
    QPushButton* bring_;
};

} // namespace tw
