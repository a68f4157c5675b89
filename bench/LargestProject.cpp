// SPDX-License-Identifier: Apache-2.0
#include "LargestProject.h"

#include "unit/LargestProject.h"

#include <cstdlib>
#include <cstdio>

namespace tw::bench {

void fillEntry(Session& s, const std::string& number) {
    s.setText(Ctl::txtBentNoPI, number);
    choose(s, Ctl::cboBtomCalPI, 1);
    s.setText(Ctl::txtBtLCapPI, "96.50");
    s.setText(Ctl::txtBtRCapPI, "96.25");
    for (int i = 0; i < 20; ++i)
        s.setText(CtlId(Ctl::txtEStepPI, i), "100.25");
    for (Ctl c : {Ctl::txtLwingwallElevation, Ctl::txtRwingwallElevation, Ctl::txtTopLeftEndPost,
                  Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall})
        s.setText(c, "104.75");
}

void fillLargestProject(Session& s) { test::fillLargestProject(s); }

void loadLargestProject(App& app) {
    if (!test::bring(app, fillLargestProject)) {
        std::fputs("the largest project was refused\n", stderr);
        std::abort();
    }
}

} // namespace tw::bench
