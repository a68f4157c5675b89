// SPDX-License-Identifier: Apache-2.0
#include "core/form/FormPrompts.h"

namespace tw {

std::string choicePrompt(Ctl choice) {
    switch (choice) {
    case Ctl::cboTybent: return "Select the type of bent";
    case Ctl::cboNoBeam: return "Select the number of beams";
    case Ctl::cboDrScale: return "Select the drawing scale";
    case Ctl::cboBentDrawn: return "Is the bent to be drawn?";
    case Ctl::cboBSkew: return "Select the direction of the skew";
    case Ctl::cboAngleType:
        return "Are all the angles between the centerline of the beam and the centerline of the bearing the same?";
    case Ctl::cboBearingHole: return "Select the type of bearing hole";
    case Ctl::cboTypeOfPile: return "Select the type of pile";
    case Ctl::cboStrirrups: return "Select the size of the stirrups";
    case Ctl::cboBatteredPile: return "Select the number of battered piles";
    default: return {};
    }
}

Ctl questionLabel(Ctl choice) {
    switch (choice) {
    case Ctl::cboWingParallel: return Ctl::lblCCWingPwall;
    case Ctl::cboWingwallPileBox: return Ctl::lblCCNoWinwall;
    case Ctl::cboBatterPile: return Ctl::lblCCBatPile;
    case Ctl::cboTPLwinwall: return Ctl::Label10;
    case Ctl::cboTPRwingwall: return Ctl::Label11;
    default: return choice;
    }
}

std::string centerlinePrompt(int index) {
    const std::string from = index == 0 ? "Left end" : index == 20 ? "Last beam" : "Beam " + std::to_string(index);
    const std::string to = index == 20 ? "right end" : "beam " + std::to_string(index + 1);
    return from + " to " + to;
}

} // namespace tw
