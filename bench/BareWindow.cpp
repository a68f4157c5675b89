// SPDX-License-Identifier: Apache-2.0
// The floor for start-up: a bare Qt window shown, then the program ends once
// its first frame is painted, the moment tarnwick's start-up is measured to.
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>

namespace {
class QuitAfterPaint : public QObject {
  protected:
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Paint && !quitting_) {
            quitting_ = true;
            QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
        }
        return false;
    }

  private:
    bool quitting_ = false;
};
} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow w;
    w.setCentralWidget(new QLabel(QStringLiteral("bare window")));
    w.resize(1280, 760);
    QuitAfterPaint quit;
    w.installEventFilter(&quit);
    w.show();
    return app.exec();
}
