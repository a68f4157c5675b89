// SPDX-License-Identifier: Apache-2.0
#include "LargestProject.h"

#include "core/model/Inputs.h"

#include <cstdlib>
#include <cstdio>

namespace tw::bench {

void fillEntry(Session& s, const std::string& number) {
    s.setText(Ctl::txtBentNoPI, number);
    s.setListIndex(Ctl::cboBtomCalPI, 1);
    s.setText(Ctl::txtBtLCapPI, "96.50");
    s.setText(Ctl::txtBtRCapPI, "96.25");
    for (int i = 0; i < 20; ++i)
        s.setText(CtlId(Ctl::txtEStepPI, i), "100.25");
    for (Ctl c : {Ctl::txtLwingwallElevation, Ctl::txtRwingwallElevation, Ctl::txtTopLeftEndPost,
                  Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall})
        s.setText(c, "104.75");
}

void fillLargestProject(Session& s) {
    s.setComboText(Ctl::cboTybent, "Pile End Bent with Backwall");
    s.setComboText(Ctl::cboNoBeam, "20");
    s.setComboText(Ctl::cboAngleType, "No");
    s.setComboText(Ctl::cboWingParallel, "No");
    s.setComboText(Ctl::cboWingwallPileBox, "3");
    s.setComboText(Ctl::cboBatterPile, "Yes");
    s.setComboText(Ctl::cboBatteredPile, "6");
    for (int i = 0; i < 3; ++i)
        s.setText(CtlId(Ctl::txtProjectInfo, i), "LARGEST PROJECT TITLE LINE");
    s.setText(Ctl::txtCapLength, "95.0000");
    for (int i = 0; i < 20; ++i) {
        s.setText(CtlId(Ctl::txtCapStep, i), "4.7500");
        s.setText(CtlId(Ctl::txtCenterline, i), "4.5000");
        s.setText(CtlId(Ctl::txtBeamangleH, i), "75");
        s.setText(CtlId(Ctl::txtBeamangleM, i), "30");
        s.setText(CtlId(Ctl::txtBeamangleS, i), "15.5");
    }
    for (int i = 0; i < 7; ++i)
        s.setText(CtlId(Ctl::txtBatterPile, i), "3.5000");
    s.setText(Ctl::txtPileBoxDistance1, "9.0000");
    s.setText(Ctl::txtPileBoxDistance2, "4.0000");
    std::vector<std::string> numbers;
    s.changeTable([&](BentTable& t) {
        for (int b = 1; b <= 99; ++b) {
            std::string row = std::to_string(b) + "\t96.50\t96.25\t";
            for (int c = 3; c < t.cols(); ++c)
                row += "100.25\t";
            t.addItem(row);
            numbers.push_back(std::to_string(b));
        }
    });
    s.setBentRegister(numbers);
    s.setBentCounter(99);
}

void loadLargestProject(App& app) {
    if (!test::bring(app, fillLargestProject)) {
        std::fputs("the largest project was refused\n", stderr);
        std::abort();
    }
}

} // namespace tw::bench
