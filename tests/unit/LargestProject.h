// SPDX-License-Identifier: Apache-2.0
// The largest project the program allows: an end bent with backwall, 20
// beams, every option that adds inputs, every field filled and 99 bents.
#pragma once

#include "core/form/MainForm.h"
#include "core/form/Session.h"

#include <string>

namespace tw::test {

inline void fillLargestProject(Session& s) {
    chooseText(s, Ctl::cboTybent, "Pile End Bent with Backwall");
    chooseText(s, Ctl::cboNoBeam, "20");
    chooseText(s, Ctl::cboAngleType, "No");
    chooseText(s, Ctl::cboWingParallel, "No");
    chooseText(s, Ctl::cboWingwallPileBox, "3");
    chooseText(s, Ctl::cboBatterPile, "Yes");
    chooseText(s, Ctl::cboBatteredPile, "6");
    for (int i = 0; i < 3; ++i)
        s.setText(CtlId(Ctl::txtProjectInfo, i), "LARGEST PROJECT TITLE LINE " + std::to_string(i + 1));
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
    for (int b = 1; b <= 99; ++b) {
        std::string row = std::to_string(b) + "\t96.50\t96.25\t";
        for (int c = 3; c < s.project().table().cols(); ++c)
            row += "100.25\t";
        s.changeTable([&](BentTable& t) { t.addItem(row); });
        numbers.push_back(std::to_string(b));
    }
    s.setBentRegister(numbers);
    s.setBentCounter(99);
}

} // namespace tw::test
