// SPDX-License-Identifier: Apache-2.0
#include "render/SketchImage.h"

#include "core/drawing/Sketches.h"
#include "render/ScenePainter.h"

#include <QImage>
#include <QImageWriter>
#include <QPainter>

#include <cmath>

namespace tw {

bool writeSketchImage(const std::string& name, const QString& path, double scale, QString* error) {
    auto fail = [&](const QString& why) {
        if (error) *error = why;
        return false;
    };
    const auto sketch = drawing::sketchNamed(name);
    if (!sketch) return fail(QStringLiteral("There is no sketch called %1.").arg(QString::fromStdString(name)));
    const drawing::Scene scene =
        drawing::drawBentToFit(sketch->inputs, sketch->options, drawing::kSketchWidthPt, drawing::kSketchHeightPt);
    // At 96 dots an inch the natural size; the picture's resolution grows with it, so text keeps its points.
    const double dpi = 96 * scale;
    QImage image(static_cast<int>(std::lround(drawing::kSketchWidthPt / 72 * dpi)),
                 static_cast<int>(std::lround(drawing::kSketchHeightPt / 72 * dpi)), QImage::Format_RGB32);
    image.setDotsPerMeterX(static_cast<int>(std::lround(dpi / 0.0254)));
    image.setDotsPerMeterY(static_cast<int>(std::lround(dpi / 0.0254)));
    image.fill(Qt::white);
    QPainter p(&image);
    paintScene(p, scene, fitTransform(scene.bounds(), QRectF(image.rect())));
    p.end();
    QImageWriter writer(path);
    writer.setCompression(1); // LZW for a TIFF; ignored by formats without the option
    if (!writer.write(image)) return fail(QStringLiteral("%1 cannot be written.").arg(path));
    return true;
}

} // namespace tw
