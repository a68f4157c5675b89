// SPDX-License-Identifier: Apache-2.0
#include "core/model/Inputs.h"

#include <set>
#include <stdexcept>

namespace tw {

namespace {

// A measured value: a leading minus, a point where it has decimals, the
// whole text selected on entry.
InputRule number(Ctl c, int digits, int decimals, std::string defaultText = "", int item = -1) {
    InputRule r;
    r.ctl = c;
    r.item = item;
    r.kind = InputKind::Number;
    r.minus = true;
    r.point = decimals > 0;
    r.digits = digits;
    r.decimals = decimals;
    r.selectsOnFocus = true;
    r.defaultText = std::move(defaultText);
    return r;
}

// Dimensions carry four decimals, elevations two; angles are whole degrees
// and minutes and seconds with one decimal.
InputRule dimension(Ctl c, std::string defaultText = "") { return number(c, 2, 4, std::move(defaultText)); }
// Elevations are what a bent of the bent table is entered with.
InputRule elevation(Ctl c) {
    InputRule r = number(c, 4, 2);
    r.bentEntry = true;
    return r;
}

InputRule choice(Ctl c, int defaultIndex) {
    InputRule r;
    r.ctl = c;
    r.kind = InputKind::Choice;
    r.defaultIndex = defaultIndex;
    return r;
}

InputRule noFocusSelect(InputRule r) {
    r.selectsOnFocus = false;
    return r;
}

// Degrees, minutes and seconds of one angle: three items of one control array.
void angle(std::vector<InputRule>& rows, Ctl c, const char* seconds, bool selects) {
    const std::string defaults[] = {"90", "0", seconds};
    const int digits[] = {3, 2, 2}, decimals[] = {0, 0, 1};
    for (int i = 0; i < 3; ++i) {
        InputRule r = number(c, digits[i], decimals[i], defaults[i], i);
        r.selectsOnFocus = selects;
        rows.push_back(r);
    }
}

// The beam angles' first row has its defaults; the other nineteen are empty.
void beamAngle(std::vector<InputRule>& rows, Ctl c, int digits, int decimals, const char* first) {
    rows.push_back(number(c, digits, decimals, first, 0));
    rows.push_back(number(c, digits, decimals));
}

// Names in a word or two, as the Edit menu's Undo names a step.
const char* labelOf(Ctl c) {
    switch (c) {
    case Ctl::txtProjectInfo: return "Project Information Line #";
    case Ctl::txtCapStep: return "Cap Step #";
    case Ctl::txtCenterline: return "Centerline Distance #";
    case Ctl::txtBeamangleH:
    case Ctl::txtBeamangleM:
    case Ctl::txtBeamangleS: return "Beam Angle #";
    case Ctl::txtBatterPile: return "Battered Pile Spacing #";
    case Ctl::txtWinLAngle: return "Left Wingwall Angle";
    case Ctl::txtWinRAngle: return "Right Wingwall Angle";
    case Ctl::txtEStepPI: return "Step Elevation #";
    case Ctl::cboTybent: return "Bent Type";
    case Ctl::cboDrScale: return "Drawing Scale";
    case Ctl::cboNoBeam: return "Number of Beams";
    case Ctl::cboBSkew: return "Skew";
    case Ctl::cboAngleType: return "Same Beam Angles";
    case Ctl::cboBentDrawn: return "Bent Drawn";
    case Ctl::cboWingParallel: return "Parallel Wingwalls";
    case Ctl::cboTPLwinwall: return "Level Left Wingwall";
    case Ctl::cboTPRwingwall: return "Level Right Wingwall";
    case Ctl::cboBatterPile: return "Battered Piles Drawn";
    case Ctl::cboWingwallPileBox: return "Pile Boxes";
    case Ctl::cboBatteredPile: return "Number of Battered Piles";
    case Ctl::cboBearingHole: return "Bearing Hole";
    case Ctl::cboTypeOfPile: return "Pile Type";
    case Ctl::cboStrirrups: return "Stirrups";
    case Ctl::txtCapLength: return "Cap Length";
    case Ctl::txtCapWidth: return "Cap Width";
    case Ctl::txtCapDepth: return "Cap Depth";
    case Ctl::txtTransWidth: return "Fillet Transverse Width";
    case Ctl::txtLongWidth: return "Fillet Longitudinal Width";
    case Ctl::txtCenterlineDistance: return "Bearing Distance";
    case Ctl::txtWidthEndPost: return "End Post Width";
    case Ctl::txtLengthEndPost: return "End Post Length";
    case Ctl::txtWingwallLength: return "Wingwall Length";
    case Ctl::txtPileBoxDistance1: return "Second Pile Box Distance";
    case Ctl::txtPileBoxDistance2: return "Third Pile Box Distance";
    case Ctl::txtBentNoPI: return "Bent Number";
    case Ctl::cboBtomCalPI: return "Bottom of Cap Calculated";
    case Ctl::txtBtLCapPI: return "Bottom Left Cap";
    case Ctl::txtBtRCapPI: return "Bottom Right Cap";
    case Ctl::txtLwingwallElevation: return "Top Left Wingwall";
    case Ctl::txtElevationTopLeftfront: return "Top Left Wingwall (Front Face)";
    case Ctl::txtElevationTopLeftEnd: return "Top Left Wingwall (End)";
    case Ctl::txtRwingwallElevation: return "Top Right Wingwall";
    case Ctl::txtElevationTopRighFront: return "Top Right Wingwall (Front Face)";
    case Ctl::txtElevationTopRighEnd: return "Top Right Wingwall (End)";
    case Ctl::txtTopLeftEndPost: return "Top Left Endpost";
    case Ctl::txtTopRightEndPost: return "Top Right Endpost";
    case Ctl::txtTopLeftBackwall: return "Inside Face Left Endpost";
    case Ctl::txtTopCentBackwall: return "Centerline of Bent";
    case Ctl::txtTopRightBackwall: return "Inside Face Right Endpost";
    default: return "";
    }
}

std::vector<InputRule> buildRules() {
    std::vector<InputRule> rows;
    InputRule info;
    info.ctl = Ctl::txtProjectInfo;
    rows.push_back(info);
    rows.push_back(dimension(Ctl::txtCapStep));
    rows.push_back(dimension(Ctl::txtCenterline));
    beamAngle(rows, Ctl::txtBeamangleH, 3, 0, "90");
    beamAngle(rows, Ctl::txtBeamangleM, 2, 0, "0");
    beamAngle(rows, Ctl::txtBeamangleS, 2, 1, "0.0");
    rows.push_back(dimension(Ctl::txtBatterPile));
    // The wingwall angles' seconds read "00.0", the beam angle's "0.0": both as issued.
    angle(rows, Ctl::txtWinLAngle, "00.0", false);
    angle(rows, Ctl::txtWinRAngle, "00.0", false);
    rows.push_back(elevation(Ctl::txtEStepPI));

    rows.push_back(choice(Ctl::cboTybent, 0));
    rows.push_back(choice(Ctl::cboDrScale, 0));
    rows.push_back(choice(Ctl::cboNoBeam, 3));
    for (Ctl c : {Ctl::cboBSkew, Ctl::cboAngleType, Ctl::cboBentDrawn, Ctl::cboWingParallel, Ctl::cboTPLwinwall,
                  Ctl::cboTPRwingwall})
        rows.push_back(choice(c, 0));
    rows.push_back(choice(Ctl::cboBatterPile, 1));
    rows.push_back(choice(Ctl::cboWingwallPileBox, 0));
    rows.push_back(choice(Ctl::cboBatteredPile, 3));
    rows.push_back(choice(Ctl::cboBearingHole, 1));
    rows.push_back(choice(Ctl::cboTypeOfPile, 0));
    rows.push_back(choice(Ctl::cboStrirrups, 0));

    rows.push_back(noFocusSelect(number(Ctl::txtCapLength, 3, 4)));
    rows.push_back(dimension(Ctl::txtCapWidth, "3.0000"));
    rows.push_back(dimension(Ctl::txtCapDepth, "2.0000"));
    rows.push_back(dimension(Ctl::txtTransWidth, "2.0000"));
    rows.push_back(dimension(Ctl::txtLongWidth, "2.0000"));
    rows.push_back(dimension(Ctl::txtCenterlineDistance)); // the bent type gives it its value
    rows.push_back(dimension(Ctl::txtWidthEndPost, "1.0000"));
    rows.push_back(dimension(Ctl::txtLengthEndPost, "4.0000"));
    rows.push_back(dimension(Ctl::txtWingwallLength, "10.0000"));
    rows.push_back(dimension(Ctl::txtPileBoxDistance1, "10.0000"));
    rows.push_back(dimension(Ctl::txtPileBoxDistance2, "10.0000"));

    InputRule bent;
    bent.ctl = Ctl::txtBentNoPI;
    bent.kind = InputKind::BentNumber;
    bent.selectsOnFocus = true;
    bent.maxLength = 2;
    bent.bentEntry = true;
    rows.push_back(bent);
    InputRule bottom = choice(Ctl::cboBtomCalPI, 0);
    bottom.bentEntry = true;
    rows.push_back(bottom);
    for (Ctl c : {Ctl::txtBtLCapPI, Ctl::txtBtRCapPI, Ctl::txtLwingwallElevation, Ctl::txtElevationTopLeftfront,
                  Ctl::txtElevationTopLeftEnd, Ctl::txtRwingwallElevation, Ctl::txtElevationTopRighFront,
                  Ctl::txtElevationTopRighEnd, Ctl::txtTopLeftEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall,
                  Ctl::txtTopRightBackwall, Ctl::txtTopRightEndPost})
        rows.push_back(elevation(c));
    for (auto& r : rows)
        r.label = labelOf(r.ctl);
    return rows;
}

const std::vector<InputRule>& rules() {
    static const std::vector<InputRule> table = buildRules();
    return table;
}

} // namespace

const InputRule& inputRule(const CtlId& id) {
    const InputRule* general = nullptr;
    for (const auto& r : rules()) {
        if (r.ctl != id.ctl) continue;
        if (r.item >= 0 && r.item == id.index) return r;
        if (r.item < 0) general = &r;
    }
    if (!general) throw std::out_of_range("no input " + toString(id));
    return *general;
}

bool isInput(Ctl ctl) {
    for (const auto& r : rules())
        if (r.ctl == ctl) return true;
    return false;
}

bool isBentEntry(const CtlId& id) { return isInput(id.ctl) && inputRule(id).bentEntry; }

const std::vector<Ctl>& inputControls() {
    static const std::vector<Ctl> controls = [] {
        std::vector<Ctl> v;
        std::set<Ctl> seen;
        for (const auto& r : rules())
            if (seen.insert(r.ctl).second) v.push_back(r.ctl);
        return v;
    }();
    return controls;
}

const std::vector<CtlId>& projectInputs() {
    static const std::vector<CtlId> inputs = [] {
        std::vector<CtlId> v;
        for (Ctl c : inputControls()) {
            if (ctlArraySize(c) == 0) v.emplace_back(c);
            for (int i = 0; i < ctlArraySize(c); ++i)
                v.emplace_back(c, i);
        }
        return v;
    }();
    return inputs;
}

int fileWidth(const CtlId& id) {
    const InputRule& r = inputRule(id);
    return r.digits + r.decimals;
}

int fileDecimals(const CtlId& id) { return inputRule(id).decimals; }

std::string inputLabel(const CtlId& id) {
    std::string label = inputRule(id).label;
    if (const auto hash = label.find('#'); hash != std::string::npos)
        label.replace(hash, 1, std::to_string(id.index + 1));
    return label;
}

} // namespace tw
