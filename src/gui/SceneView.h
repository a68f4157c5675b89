// SPDX-License-Identifier: Apache-2.0
// A widget that shows a drawing Scene: the wheel zooms about the pointer, a
// drag pans, and Fit shows the whole drawing (a drawing laid out for the view
// at the scale it was laid out for). While the user has not zoomed or panned,
// a new scene is fitted again, so a live drawing follows the inputs; once the
// user has chosen a view, it is kept until Fit.
#pragma once

#include "core/drawing/Scene.h"
#include "render/ScenePainter.h"

#include <QPoint>
#include <QTransform>
#include <QWidget>

namespace tw {

class SceneView : public QWidget {
    Q_OBJECT
  public:
    explicit SceneView(QWidget* parent = nullptr);

    void setScene(drawing::Scene scene);
    const drawing::Scene& scene() const { return scene_; }
    void setOptions(const PaintOptions& options);
    const PaintOptions& options() const { return options_; }

    // World to widget, as painted now.
    QTransform transform() const;
    bool fitted() const { return fitted_; }

  public slots:
    void fit();
    void zoomIn();
    void zoomOut();

  signals:
    void viewChanged();

  protected:
    // Takes the scene without asking for a repaint (a paint under way draws it).
    void adopt(drawing::Scene scene);
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void zoomAbout(const QPointF& at, double factor);
    // The whole drawing, as Fit shows it.
    QTransform fittedTransform() const;
    // Leaves the fitted view for one of the user's, frozen where it stands.
    void unfit();

    drawing::Scene scene_;
    drawing::SceneIndex index_;
    drawing::Box bounds_;
    PaintOptions options_;
    // The user's view, applied after fitting: zoom about the widget centre, then a pan.
    QTransform frozen_; // the fitted view when the user left it
    double zoom_ = 1.0;
    QPointF pan_;
    bool fitted_ = true;
    bool dragging_ = false;
    QPoint last_;
};

} // namespace tw
