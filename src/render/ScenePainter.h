// SPDX-License-Identifier: Apache-2.0
// Paints a drawing Scene with QPainter: on a widget, an SVG, a PDF or an
// image. Geometry scales with the view; screen-sized text, arrowheads and
// line widths keep their size on the page, so a drawing stays readable at
// any zoom.
#pragma once

#include "core/drawing/Scene.h"
#include "core/drawing/SceneIndex.h"
#include "core/ports.h"

#include <QColor>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QTransform>

#include <functional>
#include <set>
#include <string>

class QPainter;
class QPaintDevice;

namespace tw {

struct PaintOptions {
    std::string highlight;      // shapes whose source is this are drawn highlighted
    std::set<int> hiddenLevels; // levels not drawn
    QColor background = Qt::white;
};

// World to device: the box fitted into `target` with a margin, y pointing up.
QTransform fitTransform(const drawing::Box& box, const QRectF& target, double marginFraction = 0.05);

// Paints the scene; the painter's own transform is left as it was. With the
// index of the scene's polylines, a view on screen draws only the lines it
// shows, and small ones as pixels, so a large drawing pans and zooms within
// a frame; without it (print, export) every line is drawn in full.
void paintScene(QPainter& painter, const drawing::Scene& scene, const QTransform& worldToDevice,
                const PaintOptions& options = {}, const drawing::SceneIndex* index = nullptr);

// How a finished picture reaches its file: all of it or nothing (the
// program's careful save, replaceFile; a test's stand-in).
using FileWriter = std::function<WriteResult(const std::string& path, const std::string& bytes)>;

// The scene fitted to one page or picture, drawn in memory and handed to
// `write` for `path`: SVG, PDF or PNG by the suffix of `path`. False with a
// sentence in `error` when it cannot be drawn or written; then nothing new
// stands at `path`.
bool exportScene(const drawing::Scene& scene, const QString& path, QString* error, const FileWriter& write,
                 const QString& title = {}, const PaintOptions& options = {});

// The suffixes exportScene understands, for messages and file dialogs.
QString exportSuffixes();

} // namespace tw
