#include "core/model/Project.h"

namespace tw {

namespace {
void addArray(std::vector<CtlId>& v, Ctl c) {
    for (int i = 0; i < ctlArraySize(c); ++i)
        v.emplace_back(c, i);
}
} // namespace

const std::vector<CtlId>& projectInputs() {
    static const std::vector<CtlId> inputs = [] {
        std::vector<CtlId> v;
        for (Ctl c : {Ctl::txtProjectInfo, Ctl::txtCapStep, Ctl::txtCenterline, Ctl::txtBeamangleH, Ctl::txtBeamangleM,
                      Ctl::txtBeamangleS, Ctl::txtBatterPile, Ctl::txtWinLAngle, Ctl::txtWinRAngle, Ctl::txtEStepPI})
            addArray(v, c);
        for (Ctl c : {Ctl::cboTybent,
                      Ctl::cboDrScale,
                      Ctl::cboNoBeam,
                      Ctl::cboBSkew,
                      Ctl::cboAngleType,
                      Ctl::cboBentDrawn,
                      Ctl::cboWingParallel,
                      Ctl::cboTPLwinwall,
                      Ctl::cboTPRwingwall,
                      Ctl::cboBatterPile,
                      Ctl::cboWingwallPileBox,
                      Ctl::cboBatteredPile,
                      Ctl::cboBearingHole,
                      Ctl::cboTypeOfPile,
                      Ctl::cboStrirrups,
                      Ctl::txtCapLength,
                      Ctl::txtCapWidth,
                      Ctl::txtCapDepth,
                      Ctl::txtTransWidth,
                      Ctl::txtLongWidth,
                      Ctl::txtCenterlineDistance,
                      Ctl::txtWidthEndPost,
                      Ctl::txtLengthEndPost,
                      Ctl::txtWingwallLength,
                      Ctl::txtPileBoxDistance1,
                      Ctl::txtPileBoxDistance2,
                      Ctl::txtBentNoPI,
                      Ctl::cboBtomCalPI,
                      Ctl::txtBtLCapPI,
                      Ctl::txtBtRCapPI,
                      Ctl::txtLwingwallElevation,
                      Ctl::txtElevationTopLeftfront,
                      Ctl::txtElevationTopLeftEnd,
                      Ctl::txtRwingwallElevation,
                      Ctl::txtElevationTopRighFront,
                      Ctl::txtElevationTopRighEnd,
                      Ctl::txtTopLeftEndPost,
                      Ctl::txtTopLeftBackwall,
                      Ctl::txtTopCentBackwall,
                      Ctl::txtTopRightBackwall,
                      Ctl::txtTopRightEndPost})
            v.emplace_back(c);
        return v;
    }();
    return inputs;
}

} // namespace tw
