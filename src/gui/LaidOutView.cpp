// SPDX-License-Identifier: Apache-2.0
#include "gui/LaidOutView.h"

#include <QResizeEvent>

namespace tw {

LaidOutView::LaidOutView(QWidget* parent) : SceneView(parent) {}

void LaidOutView::setLayout(Layout layout) {
    layout_ = std::move(layout);
    relayout();
}

void LaidOutView::relayout() {
    if (!layout_ || width() <= 0 || height() <= 0) return;
    const double pointsPerPixel = 72.0 / logicalDpiY();
    setScene(layout_(width() * pointsPerPixel, height() * pointsPerPixel));
}

void LaidOutView::resizeEvent(QResizeEvent* event) {
    SceneView::resizeEvent(event);
    relayout();
}

} // namespace tw
