// SPDX-License-Identifier: Apache-2.0
#include "gui/ViewerMain.h"

#include "gui/DrawingViewer.h"
#include "gui/SmallWindows.h"
#include "platform/GdalDrawingReader.h"
#include "platform/SafeFile.h"
#include "render/ScenePainter.h"

#include <QApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>
#include <iostream>
#include <new>

namespace tw {

namespace {

bool hasDisplay() { return std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY") || std::getenv("QT_QPA_PLATFORM"); }

int exportDrawing(int& argc, char** argv, const std::string& programDir, const std::string& file,
                  const std::string& out) {
    LoadedDrawing drawing;
    std::string error;
    if (!loadDrawing(programDir, file, drawing, error)) {
        std::cerr << "tarnwick: " << error << '\n';
        return 1;
    }
    // Writing a file needs no screen: without one, Qt draws offscreen for this command.
    if (!hasDisplay()) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QString why;
    bool written = false;
    // The image libraries' own complaints (libpng short of memory writes to standard error itself) are not for
    // the user: the one line below says what happened.
    const int stderrWas = ::dup(2);
    if (const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC); null >= 0) {
        ::dup2(null, 2);
        ::close(null);
    }
    try {
        written = exportScene(drawing.scene, QString::fromStdString(out), &why, replaceFile,
                              QFileInfo(QString::fromStdString(file)).fileName());
    } catch (const std::bad_alloc&) {
        why = QString::fromStdString(file) +
              QStringLiteral(" cannot be drawn: it needs more memory than the program may use.");
    }
    if (stderrWas >= 0) ::dup2(stderrWas, 2);
    if (!written) std::cerr << "tarnwick: " << why.toStdString() << '\n';
    // The file is written (or refused and gone): end here. Short of memory,
    // the font library does not survive the application's teardown.
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(written ? 0 : 1);
}

int showDrawing(int& argc, char** argv, const std::string& programDir, const std::string& file) {
    if (!hasDisplay()) {
        std::cerr << "tarnwick: no display found, so the drawing cannot be shown; "
                     "`tarnwick view DRAWING --export OUT` writes it as SVG, PDF or PNG.\n";
        return 1;
    }
    LoadedDrawing drawing;
    std::string error;
    const bool loaded = loadDrawing(programDir, file, drawing, error);
    if (!loaded) std::cerr << "tarnwick: " << error << '\n';
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Norvale"));
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    if (!loaded) {
        QMessageBox::critical(nullptr, QStringLiteral("Tarnwick drawing viewer"), QString::fromStdString(error));
        return 1;
    }
    DrawingViewer viewer(std::move(drawing.scene), QString::fromStdString(file), drawing.elements);
    viewer.placeOnScreen();
    makeSmallWindow(&viewer, QStringLiteral("drawingViewer"), nullptr);
    viewer.show();
    return app.exec();
}

} // namespace

void openDrawingViewer(const std::string& programDir, const std::string& file, QWidget* parent) {
    LoadedDrawing drawing;
    std::string error;
    if (!loadDrawing(programDir, file, drawing, error)) {
        QMessageBox::warning(parent, QStringLiteral("Tarnwick drawing viewer"), QString::fromStdString(error));
        return;
    }
    auto* viewer = new DrawingViewer(std::move(drawing.scene), QString::fromStdString(file), drawing.elements);
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->placeOnScreen();
    makeSmallWindow(viewer, QStringLiteral("drawingViewer"), parent ? parent->window() : nullptr);
    viewer->show();
}

bool isDrawingFileName(const std::string& arg) {
    return arg.size() > 4 && QString::fromStdString(arg).endsWith(QLatin1String(".dgn"), Qt::CaseInsensitive);
}

int runView(int& argc, char** argv, const std::string& programDir, const std::vector<std::string>& args) {
    try {
        if (args.size() == 1 && args[0].rfind("--", 0) != 0) return showDrawing(argc, argv, programDir, args[0]);
        if (args.size() == 3 && args[1] == "--export") return exportDrawing(argc, argv, programDir, args[0], args[2]);
    } catch (const std::bad_alloc&) {
        // Under a memory limit: a sentence and a failure, never an abort.
        std::cerr << "tarnwick: " << args[0] << " cannot be drawn: it needs more memory than the program may use.\n";
        return 1;
    }
    std::cerr << "tarnwick: view needs a drawing, and --export OUT to write it without a window\n";
    return 2;
}

} // namespace tw
