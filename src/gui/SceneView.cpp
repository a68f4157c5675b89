// SPDX-License-Identifier: Apache-2.0
#include "gui/SceneView.h"
#include "gui/FocusMarker.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace tw {

namespace {
constexpr double kStep = 1.25;
constexpr double kMinZoom = 0.05;
constexpr double kMaxZoom = 400.0;
} // namespace

SceneView::SceneView(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(false);
    setMinimumSize(200, 150);
    setAutoFillBackground(false);
    setCursor(Qt::OpenHandCursor);
}

void SceneView::setScene(drawing::Scene scene) {
    adopt(std::move(scene));
    update();
}

void SceneView::adopt(drawing::Scene scene) {
    scene_ = std::move(scene);
    // Kept with the scene: a frame of a large drawing cannot afford to look at every point.
    index_ = drawing::SceneIndex(scene_.polylines);
    bounds_ = scene_.bounds();
}

void SceneView::setOptions(const PaintOptions& options) {
    options_ = options;
    update();
}

QTransform SceneView::fittedTransform() const {
    const QRectF r(rect());
    if (scene_.feetPerPoint <= 0 || bounds_.empty) return fitTransform(bounds_, r);
    // A drawing laid out for this view is shown at the scale it was laid out for (or a
    // little smaller where it came out wider), centred, or from its top where it runs
    // on below a view too small for it.
    double scale = logicalDpiY() / 72.0 / scene_.feetPerPoint;
    if (bounds_.width() * scale > r.width()) scale = r.width() / bounds_.width();
    const double h = bounds_.height() * scale;
    QTransform t;
    t.translate(r.center().x(), h <= r.height() ? r.center().y() : r.top() + h / 2);
    t.scale(scale, -scale);
    t.translate(-(bounds_.minX + bounds_.maxX) / 2, -(bounds_.minY + bounds_.maxY) / 2);
    return t;
}

QTransform SceneView::transform() const {
    if (fitted_) return fittedTransform();
    const QTransform& base = frozen_;
    const QPointF c = QRectF(rect()).center();
    QTransform user;
    user.translate(c.x() + pan_.x(), c.y() + pan_.y());
    user.scale(zoom_, zoom_);
    user.translate(-c.x(), -c.y());
    return base * user;
}

void SceneView::fit() {
    zoom_ = 1.0;
    pan_ = {};
    fitted_ = true;
    update();
    emit viewChanged();
}

void SceneView::unfit() {
    if (!fitted_) return;
    // Later scenes are drawn in the same frame, so the drawing does not jump while the user looks at a part of it.
    frozen_ = fittedTransform();
    fitted_ = false;
}

void SceneView::zoomIn() { zoomAbout(QRectF(rect()).center(), kStep); }
void SceneView::zoomOut() { zoomAbout(QRectF(rect()).center(), 1 / kStep); }

void SceneView::zoomAbout(const QPointF& at, double factor) {
    unfit();
    const double next = std::clamp(zoom_ * factor, kMinZoom, kMaxZoom);
    factor = next / zoom_;
    // Keep the point under the pointer where it is.
    const QPointF c = QRectF(rect()).center();
    pan_ = (pan_ + c - at) * factor - (c - at);
    zoom_ = next;
    update();
    emit viewChanged();
}

void SceneView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), options_.background);
    paintScene(p, scene_, transform(), options_, &index_);
    drawFocusMarker(p, this, rect());
}

void SceneView::focusInEvent(QFocusEvent* event) {
    update();
    QWidget::focusInEvent(event);
}

void SceneView::focusOutEvent(QFocusEvent* event) {
    update();
    QWidget::focusOutEvent(event);
}

void SceneView::wheelEvent(QWheelEvent* event) {
    const double steps = event->angleDelta().y() / 120.0;
    if (steps == 0) return;
    zoomAbout(event->position(), std::pow(kStep, steps));
    event->accept();
}

void SceneView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton) {
        dragging_ = true;
        last_ = event->pos();
        setCursor(Qt::ClosedHandCursor);
    }
    QWidget::mousePressEvent(event);
}

void SceneView::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_) return;
    unfit();
    pan_ += QPointF(event->pos() - last_);
    last_ = event->pos();
    update();
    emit viewChanged();
}

void SceneView::mouseReleaseEvent(QMouseEvent* event) {
    dragging_ = false;
    setCursor(Qt::OpenHandCursor);
    QWidget::mouseReleaseEvent(event);
}

void SceneView::mouseDoubleClickEvent(QMouseEvent*) { fit(); }

void SceneView::keyPressEvent(QKeyEvent* event) {
    QPointF move;
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: zoomIn(); break;
    case Qt::Key_Minus: zoomOut(); break;
    case Qt::Key_F:
    case Qt::Key_0:
    case Qt::Key_Home: fit(); break;
    case Qt::Key_Left: move = {40, 0}; break;
    case Qt::Key_Right: move = {-40, 0}; break;
    case Qt::Key_Up: move = {0, 40}; break;
    case Qt::Key_Down: move = {0, -40}; break;
    default: QWidget::keyPressEvent(event); return;
    }
    if (move.isNull()) return;
    unfit();
    pan_ += move;
    update();
    emit viewChanged();
}

void SceneView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    update();
}

} // namespace tw
