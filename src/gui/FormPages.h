// SPDX-License-Identifier: Apache-2.0
// The pages of the main form's tabs, each built on the one form grid.
#pragma once

#include "core/model/Controls.h"

#include <optional>
#include <vector>

class QWidget;

namespace tw {

class App;
class Binder;

// A titled section of a page: its frame of the form, if it has one, and the
// fields it holds (every item of an array).
struct PageSection {
    std::optional<Ctl> frame;
    std::vector<Ctl> fields;
};

// A page of the form's sections: how to build it, and what it holds, so that
// its tab shows or hides before the page is first shown and built.
struct FormPage {
    QWidget* (*build)(Binder&);
    std::vector<PageSection> sections;
};

// The pages of the tabs before the bent table's, in tab order.
const std::vector<FormPage>& formPages();

// A section shows while its frame does and one of its fields does; a page
// shows while one of its sections does.
bool pageShows(const App& app, const FormPage& page);
// Whether the page holds the control as one of its fields.
bool pageHolds(const FormPage& page, Ctl ctl);

QWidget* generalPage(Binder& b);
QWidget* capPage(Binder& b);
QWidget* wingwallPage(Binder& b);
QWidget* bearingPage(Binder& b);
QWidget* pilePage(Binder& b);

// A page that scrolls as a whole when the window is too small for it, and
// only then: nothing on it scrolls on its own.
QWidget* scrolledPage(QWidget* content);

} // namespace tw
