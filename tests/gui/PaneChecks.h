// SPDX-License-Identifier: Apache-2.0
// The drawing pane as a checker looks at it: nothing touches a label, and the
// cap takes most of the pane's width.
#pragma once

#include "../unit/DrawingChecks.h"

#include "gui/LaidOutView.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace tw::test {

// What is wrong with the pane's drawing as it is shown now; empty when nothing is.
inline QString paneFaults(LaidOutView& view) {
    const drawing::Scene& scene = view.scene();
    const auto clashes = clashesIn(scene, scene.feetPerPoint);
    if (!clashes.empty()) return QString::fromStdString(clashes.front());
    // The cap: the widest filled outline drawn for the cap length, at the scale it is shown at.
    double cap = 0;
    for (const auto& shape : scene.shapes)
        if (shape.fill && shape.source == "txtCapLength") {
            drawing::Box b;
            for (const auto& p : shape.points)
                b.add(p);
            cap = std::max(cap, b.width() * std::abs(view.transform().m11()));
        }
    if (cap < 0.8 * view.width())
        return QStringLiteral("the cap takes %1 of the view's %2 pixels").arg(cap).arg(view.width());
    return {};
}

} // namespace tw::test
