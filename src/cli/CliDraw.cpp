// SPDX-License-Identifier: Apache-2.0
// tarnwick draw FILE [--bent N] OUT: the bent of an input file, drawn as the
// window's drawing pane shows it, written as SVG, PDF or PNG.
#include "cli/Cli.h"
#include "core/drawing/BentDrawing.h"
#include "core/output/UnitsSetting.h"
#include "platform/Platform.h"
#include "platform/ProjectFile.h"
#include "platform/SafeFile.h"
#include "render/ScenePainter.h"

#include <QFileInfo>
#include <QGuiApplication>

#include <cstdlib>
#include <iostream>

namespace tw {

namespace {

// The page each format is drawn on, in points: what exportScene fits the drawing into.
struct Page {
    double width, height;
};

Page pageFor(const QString& path) {
    if (QFileInfo(path).suffix().toLower() == QLatin1String("pdf"))
        return {(297 - 24) / 25.4 * 72, (210 - 24) / 25.4 * 72}; // A4 landscape inside 12 mm margins
    return {1600 * 0.75, 1600 * 0.75 * 1.5};                     // 1600 pixels at 96 dpi, at most half again as tall
}

} // namespace

LengthUnits unitsOf(const CliOptions& opt) {
    if (opt.units) return *opt.units;
    Platform platform;
    return lengthUnits(platform);
}

std::unique_ptr<QCoreApplication> paintingApplication(int& argc, char** argv) {
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") && !std::getenv("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

int cliDraw(const CliOptions& opt, const std::vector<std::string>& args) {
    std::vector<std::string> paths;
    std::optional<int> bent;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--bent") {
            if (i + 1 >= args.size()) {
                std::cerr << "tarnwick: --bent needs a number\n";
                return 2;
            }
            const std::string& n = args[++i];
            if (n.empty() || n.find_first_not_of("0123456789") != std::string::npos || n.size() > 3 ||
                std::stoi(n) < 1) {
                std::cerr << "tarnwick: --bent " << n << ": a row of the bent table is a number from 1\n";
                return 2;
            }
            bent = std::stoi(n);
        } else {
            paths.push_back(args[i]);
        }
    }
    if (paths.size() != 2) {
        std::cerr << "tarnwick: draw takes FILE [--bent N] OUT\n";
        return 2;
    }
    const std::string& file = paths[0];
    const QString out = QString::fromStdString(paths[1]);

    const ProjectRead read = readProjectFile(file);
    if (!read.ok()) {
        std::cerr << file << ": " << whyUnread(read) << '\n';
        return 1;
    }
    const int bents = read.project.bents();
    if (bent && *bent > bents) {
        std::cerr << "tarnwick: --bent " << *bent << ": " << file << " holds " << bents << " bents\n";
        return 2;
    }
    // Without bents the elevation shows what is missing.
    const drawing::BentInputs inputs = drawing::readBentInputs(read.project, bents > 0 ? bent.value_or(1) : 0);
    const Page page = pageFor(out);
    drawing::DrawOptions options;
    options.units = unitsOf(opt);
    options.legend = true; // a drawing for paper: its units and a scale bar
    const drawing::Scene scene = drawing::drawBentToFit(inputs, options, page.width, page.height);
    QString error;
    if (!exportScene(scene, out, &error, replaceFile, QStringLiteral("Tarnwick bent drawing"))) {
        std::cerr << "tarnwick: " << error.toStdString() << '\n';
        return 1;
    }
    return 0;
}

} // namespace tw
