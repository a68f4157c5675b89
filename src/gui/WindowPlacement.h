// SPDX-License-Identifier: Apache-2.0
// Where windows go: the old forms' rules (centred on the screen, centred on
// the main window, beside its corner), applied to the whole window with its
// frame, and never past the edges of the screen it is on.
#pragma once

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

namespace tw {

// The window manager's frame around a top-level window: the one seen last on
// a shown window, or a usual title bar and border before any was shown.
QMargins frameMargins(const QWidget* w);
// The screen area a window may use, frame included.
QRect availableArea(const QWidget* w);

// The largest client size not above `wanted` whose frame fits the screen.
QSize fittedSize(const QWidget* w, QSize wanted);
// The frame centred on the screen, or on `over` (another window).
void centre(QWidget* w, const QWidget* over = nullptr);
// The frame's corner at `frameTopLeft`, moved as little as needed to stay on the screen.
void placeAt(QWidget* w, QPoint frameTopLeft);
// Brings a window whole onto the screen each time it is shown, once its frame is known.
void keepOnScreen(QWidget* w);

} // namespace tw
