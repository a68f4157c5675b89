// SPDX-License-Identifier: Apache-2.0
#include "gui/FocusMarker.h"

#include <QPainter>
#include <QPen>
#include <QStyleOptionFocusRect>
#include <QWidget>

namespace tw {

void drawFocusMarker(QPainter& p, const QWidget* w, const QRect& area) {
    if (!w->hasFocus()) return;
    p.save();
    // Two pixels of the highlight colour: seen on a white drawing and on the window's grey alike.
    QPen pen(w->palette().color(QPalette::Highlight), 2);
    pen.setJoinStyle(Qt::MiterJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(area).adjusted(1, 1, -1, -1));
    p.restore();
}

} // namespace tw
