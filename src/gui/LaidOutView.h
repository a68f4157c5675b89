// SPDX-License-Identifier: Apache-2.0
// A drawing view whose scene is laid out for the room it has: text keeps its
// size in points, so the room the text takes around the geometry depends on
// the view's size, and a resize lays the drawing out again. Layouts asked for
// in one turn are done once, when the view is next painted or its scene read.
#pragma once

#include "gui/SceneView.h"

#include <functional>

namespace tw {

class LaidOutView : public SceneView {
    Q_OBJECT
  public:
    // Makes the scene for a view `widthPt` by `heightPt` points.
    using Layout = std::function<drawing::Scene(double widthPt, double heightPt)>;

    explicit LaidOutView(QWidget* parent = nullptr);
    void setLayout(Layout layout);
    // Lays the scene out again for the current size, before the next frame.
    void relayout();
    // The scene as laid out for the view now.
    const drawing::Scene& scene();
    // The size the drawing is meant to be seen at.
    void setNaturalSize(QSize size) { natural_ = size; }
    QSize sizeHint() const override { return natural_.isValid() ? natural_ : SceneView::sizeHint(); }

  signals:
    // A new scene was laid out.
    void laidOut();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void layOut();

    Layout layout_;
    bool pending_ = false;
    QSize natural_;
};

} // namespace tw
