// SPDX-License-Identifier: Apache-2.0
// The pages of the main form's tabs, each built on the one form grid.
#pragma once

class QWidget;

namespace tw {

class Binder;

QWidget* generalPage(Binder& b);
QWidget* capPage(Binder& b);
QWidget* wingwallPage(Binder& b);
QWidget* bearingPage(Binder& b);
QWidget* pilePage(Binder& b);

// A page that scrolls as a whole when the window is too small for it, and
// only then: nothing on it scrolls on its own.
QWidget* scrolledPage(QWidget* content);

} // namespace tw
