// SPDX-License-Identifier: Apache-2.0
// The program's focus marker, for the widgets the style draws none on (a
// drawing view, a link): the style's own focus frame, in the highlight colour.
#pragma once

#include <QRect>

class QPainter;
class QWidget;

namespace tw {

// Draws the marker just inside `area` of `w` while `w` has the focus.
void drawFocusMarker(QPainter& p, const QWidget* w, const QRect& area);

} // namespace tw
