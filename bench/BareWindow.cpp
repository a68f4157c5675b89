// SPDX-License-Identifier: Apache-2.0
// The floor for start-up: a bare Qt window shown, then the program ends.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow w;
    w.setCentralWidget(new QLabel(QStringLiteral("bare window")));
    w.resize(1280, 760);
    w.show();
    QTimer::singleShot(0, &app, [] { QCoreApplication::exit(0); });
    return app.exec();
}
