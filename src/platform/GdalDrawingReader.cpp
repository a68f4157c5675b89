#include "platform/GdalDrawingReader.h"

#include "platform/QtText.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>

namespace tw {

using drawing::DgnElement;

namespace {

// The reader's entry; once loaded, the library stays (QLibrary does not unload it).
drawing::ReadDgnEntry* readerEntry(const std::string& programDir, std::string& why) {
    QLibrary library(q(programDir + "/" + drawing::kDrawingReaderLibrary));
    auto* entry = reinterpret_cast<drawing::ReadDgnEntry*>(library.resolve(drawing::kReadDgnEntry));
    if (!entry) why = library.errorString().toStdString();
    return entry;
}

} // namespace

bool GdalDrawingReader::read(const std::string& path, std::vector<DgnElement>& elements, std::string& error) {
    elements.clear();
    const QString name = q(path);
    const QFileInfo info(name);
    if (!info.exists()) {
        error = path + ": no such file.";
        return false;
    }
    if (info.isDir()) {
        error = path + " is a folder, not a drawing.";
        return false;
    }
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        error = path + " cannot be read: " + file.errorString().toStdString() + ".";
        return false;
    }
    const QByteArray bytes = file.readAll();
    file.close();
    if (bytes.isEmpty()) {
        error = path + " is empty, not a drawing.";
        return false;
    }
    std::string why;
    auto* entry = readerEntry(programDir_, why);
    if (!entry) {
        error = path + " cannot be read: the program's drawing reader (" + drawing::kDrawingReaderLibrary + " in " +
                programDir_ + ") cannot be loaded: " + why + ".";
        return false;
    }
    if (!entry(path, elements, error)) return false;
    if (const auto problem = drawing::dgnChainProblem(std::string_view(bytes.constData(), bytes.size()))) {
        elements.clear();
        error = path + " is damaged: " + *problem + ".";
        return false;
    }
    return true;
}

bool loadDrawing(const std::string& programDir, const std::string& path, LoadedDrawing& drawing, std::string& error) {
    std::vector<DgnElement> elements;
    if (!GdalDrawingReader(programDir).read(path, elements, error)) return false;
    drawing.elements = elements.size();
    drawing.scene = drawing::sceneFromDgn(elements);
    return true;
}

} // namespace tw
