// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/Prompts.h"

namespace tw::drawing {

std::string promptOf(const CtlId& id, const BentInputs& in) {
    const std::string row = std::to_string(id.index + 1);
    const bool end = in.type && isEndBent(*in.type);
    switch (id.ctl) {
    case Ctl::txtCapLength:
        return end ? "Enter the length of the cap measured along the front face of the cap"
                   : "Enter the length of the cap";
    case Ctl::txtCapWidth: return "Enter the cap width";
    case Ctl::txtCapDepth: return "Enter the minimum cap depth";
    case Ctl::txtTransWidth: return "Enter the transverse width of the fillet";
    case Ctl::txtLongWidth:
        return "Enter the longitudinal width of the fillet (measured perpendicular to the back face paving rest)";
    case Ctl::txtCenterlineDistance:
        return "Enter the distance from the front face of the cap to the center of the bearing";
    case Ctl::txtWidthEndPost: return "Enter the width of the end post";
    case Ctl::txtLengthEndPost: return "Enter the length of the end post";
    case Ctl::txtWingwallLength: return "Enter the wingwall length";
    case Ctl::txtPileBoxDistance1:
        return "Enter the dimension from the front face of cap to the centerline of the second pile box";
    case Ctl::txtPileBoxDistance2:
        return "Enter the dimension from the front face of cap to the centerline of the third pile box";
    case Ctl::txtCapStep: return "Cap Steps " + row;
    case Ctl::txtCenterline:
        return id.index == 20 ? "Distance left to the right end of the cap" : "Centerline Locations " + row;
    case Ctl::txtBeamangleH:
    case Ctl::txtBeamangleM:
    case Ctl::txtBeamangleS:
        return in.anglesAlike ? "Angle between the centerline of the beam and the centerline of the bearing"
                              : "Beam Angles " + row;
    case Ctl::txtBatterPile: return id.index == 6 ? "Distance left" : "Battered Pile " + row + " Spacing";
    case Ctl::txtWinLAngle: return in.wingsParallel ? "Enter the wingwall angle" : "Enter the left wingwall angle";
    case Ctl::txtWinRAngle: return "Enter the right wingwall angle";
    case Ctl::txtBtLCapPI: return "Enter the bottom left cap elevation";
    case Ctl::txtBtRCapPI: return "Enter the bottom right cap elevation";
    case Ctl::txtEStepPI: return "Step Elevations " + row;
    case Ctl::txtLwingwallElevation: return "Enter the elevation at the top of the left wingwall";
    case Ctl::txtRwingwallElevation: return "Enter the elevation at the top of the right wingwall";
    case Ctl::txtElevationTopLeftfront: return "Top Left Wingwall Level: Elevation at the front face of the cap";
    case Ctl::txtElevationTopLeftEnd: return "Top Left Wingwall Level: Elevation at the end of the wingwall";
    case Ctl::txtElevationTopRighFront: return "Top Right Wingwall Level: Elevation at the front face of the cap";
    case Ctl::txtElevationTopRighEnd: return "Top Right Wingwall Level: Elevation at the end of the wingwall";
    case Ctl::txtTopLeftEndPost: return "Top of the left end post";
    case Ctl::txtTopRightEndPost: return "Top of the right end post";
    case Ctl::txtTopLeftBackwall: return "Backwall at the inside face of the left end post";
    case Ctl::txtTopCentBackwall: return "Backwall at the centerline of the bent";
    case Ctl::txtTopRightBackwall: return "Backwall at the inside face of the right end post";
    default: return toString(id);
    }
}

} // namespace tw::drawing
