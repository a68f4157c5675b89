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
    pending_ = true;
    update();
}

void LaidOutView::layOut() {
    pending_ = false;
    if (!layout_ || width() <= 0 || height() <= 0) return;
    const double pointsPerPixel = 72.0 / logicalDpiY();
    adopt(layout_(width() * pointsPerPixel, height() * pointsPerPixel));
    emit laidOut();
}

const drawing::Scene& LaidOutView::scene() {
    if (pending_) {
        layOut();
        update();
    }
    return SceneView::scene();
}

void LaidOutView::paintEvent(QPaintEvent* event) {
    if (pending_) layOut();
    SceneView::paintEvent(event);
}

void LaidOutView::resizeEvent(QResizeEvent* event) {
    SceneView::resizeEvent(event);
    relayout();
}

} // namespace tw
