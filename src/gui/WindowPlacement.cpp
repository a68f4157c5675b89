// SPDX-License-Identifier: Apache-2.0
#include "gui/WindowPlacement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QObject>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <algorithm>

namespace tw {

namespace {

// A title bar and thin borders, until a window manager has shown its own.
QMargins seenMargins(4, 28, 4, 4);

QMargins measured(const QWidget* w) {
    const QRect frame = w->frameGeometry(), client = w->geometry();
    return {client.left() - frame.left(), client.top() - frame.top(), frame.right() - client.right(),
            frame.bottom() - client.bottom()};
}

class Keeper : public QObject {
  public:
    explicit Keeper(QWidget* w) : QObject(w), w_(w) {}

  protected:
    bool eventFilter(QObject*, QEvent* e) override {
        // Once when shown, and again when the window manager has had time to
        // add its frame; a window the user later drags is left where it is put.
        if (e->type() == QEvent::Show) {
            QTimer::singleShot(0, this, [this] { adjust(); });
            QTimer::singleShot(250, this, [this] { adjust(); });
        }
        return false;
    }

  private:
    void adjust() {
        if (!w_->isVisible() || w_->isMaximized() || w_->isFullScreen()) return;
        const QMargins m = measured(w_);
        if (!m.isNull()) seenMargins = m;
        const QRect area = availableArea(w_);
        const QRect frame = w_->frameGeometry();
        if (area.contains(frame)) return;
        const QSize client = fittedSize(w_, w_->size());
        if (client != w_->size()) w_->resize(client);
        placeAt(w_, frame.topLeft());
    }
    QWidget* w_;
};

} // namespace

QMargins frameMargins(const QWidget* w) {
    if (w && w->isVisible()) {
        const QMargins m = measured(w);
        if (!m.isNull()) return m;
    }
    return seenMargins;
}

QRect availableArea(const QWidget* w) {
    const QScreen* s = w && w->screen() ? w->screen() : QGuiApplication::primaryScreen();
    return s ? s->availableGeometry() : QRect(0, 0, 1366, 768);
}

QSize fittedSize(const QWidget* w, QSize wanted) {
    const QMargins m = frameMargins(w);
    const QRect area = availableArea(w);
    QSize most(area.width() - m.left() - m.right(), area.height() - m.top() - m.bottom());
    most = most.expandedTo(w->minimumSizeHint().boundedTo(most)).boundedTo(w->maximumSize());
    return wanted.boundedTo(most);
}

void centre(QWidget* w, const QWidget* over) {
    const QMargins m = frameMargins(w);
    const QSize frame = w->size().grownBy(m);
    const QRect around = over && over->isVisible() ? over->frameGeometry() : availableArea(w);
    placeAt(w, around.center() - QPoint(frame.width() / 2, frame.height() / 2));
}

void placeAt(QWidget* w, QPoint frameTopLeft) {
    const QMargins m = frameMargins(w);
    const QRect area = availableArea(w);
    const QSize frame = w->size().grownBy(m);
    const int x = std::clamp(frameTopLeft.x(), area.left(), std::max(area.left(), area.right() + 1 - frame.width()));
    const int y = std::clamp(frameTopLeft.y(), area.top(), std::max(area.top(), area.bottom() + 1 - frame.height()));
    // move() places the frame's corner for a top-level window.
    w->move(x, y);
}

void keepOnScreen(QWidget* w) { w->installEventFilter(new Keeper(w)); }

} // namespace tw
