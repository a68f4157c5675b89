// SPDX-License-Identifier: Apache-2.0
#include "LargestProject.h"

#include "unit/LargestProject.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace tw::bench {

void fillEntry(App& app, const std::string& number) {
    app.actions.edit(Ctl::txtBentNoPI, number);
    app.actions.choose(Ctl::cboBtomCalPI, 1);
    app.actions.edit(Ctl::txtBtLCapPI, "96.50");
    app.actions.edit(Ctl::txtBtRCapPI, "96.25");
    for (int i = 0; i < 20; ++i)
        app.actions.edit(CtlId(Ctl::txtEStepPI, i), "100.25");
    for (Ctl c : {Ctl::txtLwingwallElevation, Ctl::txtRwingwallElevation, Ctl::txtTopLeftEndPost,
                  Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall})
        app.actions.edit(c, "104.75");
}

void fillLargestProject(Session& s) { test::fillLargestProject(s); }

void loadLargestProject(App& app) {
    const auto path = std::filesystem::temp_directory_path() / "tarnwick-bench-largest.ebnt";
    if (!test::openAs(app, test::made(fillLargestProject), path.string())) {
        std::fputs("the largest project was refused\n", stderr);
        std::abort();
    }
}

} // namespace tw::bench
