#include "gui/GuiMain.h"

#include <QApplication>
#include <QMainWindow>

namespace tw {

int runGui(int& argc, char** argv, const std::string&) {
    QApplication qapp(argc, argv);
    QMainWindow w;
    w.setWindowTitle(QStringLiteral("Norvale-Tarnwick"));
    w.show();
    return qapp.exec();
}

} // namespace tw
