// SPDX-License-Identifier: Apache-2.0
// Random projects, every value formatted the way its field leaves it.
#pragma once

#include "core/form/MainForm.h"
#include "core/form/Session.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <cmath>
#include <random>
#include <string>

namespace tw::test {

class ProjectMaker {
  public:
    explicit ProjectMaker(unsigned seed) : rng_(seed) {}

    void fill(Session& a) {
        const char* types[] = {"Pile Intermediate Bent", "Pile End Bent without Backwall",
                               "Pile End Bent with Backwall"};
        chooseText(a, Ctl::cboTybent, types[pick(3)]);
        choose(a, Ctl::cboNoBeam, pick(20));
        for (Ctl c : {Ctl::cboDrScale, Ctl::cboBSkew, Ctl::cboAngleType, Ctl::cboBentDrawn, Ctl::cboWingParallel,
                      Ctl::cboTPLwinwall, Ctl::cboTPRwingwall, Ctl::cboBatterPile, Ctl::cboWingwallPileBox,
                      Ctl::cboBatteredPile, Ctl::cboBearingHole, Ctl::cboTypeOfPile, Ctl::cboStrirrups})
            choose(a, c, pick(static_cast<int>(a.ctl(c).items.size())));
        for (const auto& id : projectInputs()) {
            if (a.ctl(id).isCombo()) continue;
            a.setText(id, valueFor(id));
        }
        const int bents = pick(3) == 0 ? 0 : pick(99) + 1;
        std::vector<std::string> numbers;
        for (int b = 0; b < bents; ++b) {
            std::string row = std::to_string(b % 99 + 1) + "\t";
            for (int c = 1; c < a.table().cols(); ++c)
                row += (c <= 2 && pick(2) ? "" : elevation()) + "\t";
            a.changeTable([&](BentTable& t) { t.addItem(row); });
            numbers.push_back(std::to_string(b % 99 + 1));
        }
        a.setBentRegister(numbers);
        a.setBentCounter(static_cast<std::int16_t>(bents));
    }

  private:
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
    std::string number(int digits, int decimals) {
        if (pick(8) == 0) return "";
        const double limit = std::pow(10.0, digits - 1) - 1;
        const double v = std::uniform_real_distribution<double>(-limit, limit * 10)(rng_);
        return formatField(digits, decimals, std::to_string(v));
    }
    std::string elevation() { return number(4, 2); }
    std::string valueFor(const CtlId& id) {
        switch (id.ctl) {
        case Ctl::txtProjectInfo: return pick(2) ? "BENT " + std::to_string(pick(1000)) + " \u00b0 OVER CREEK" : "";
        case Ctl::txtBentNoPI: return "";
        case Ctl::txtCapLength: return number(3, 4);
        case Ctl::txtBeamangleH: return number(2, 0);
        case Ctl::txtBeamangleM: return number(1, 0);
        case Ctl::txtBeamangleS: return number(1, 1);
        case Ctl::txtWinLAngle:
        case Ctl::txtWinRAngle: return id.index == 0 ? number(2, 0) : id.index == 1 ? number(1, 0) : number(1, 1);
        case Ctl::txtBtLCapPI:
        case Ctl::txtBtRCapPI:
        case Ctl::txtEStepPI:
        case Ctl::txtLwingwallElevation:
        case Ctl::txtElevationTopLeftfront:
        case Ctl::txtElevationTopLeftEnd:
        case Ctl::txtRwingwallElevation:
        case Ctl::txtElevationTopRighFront:
        case Ctl::txtElevationTopRighEnd:
        case Ctl::txtTopLeftEndPost:
        case Ctl::txtTopLeftBackwall:
        case Ctl::txtTopCentBackwall:
        case Ctl::txtTopRightBackwall:
        case Ctl::txtTopRightEndPost: return elevation();
        default: return number(1, 4);
        }
    }
    std::mt19937 rng_;
};

} // namespace tw::test
