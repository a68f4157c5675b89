// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/BentInputs.h"

#include "core/model/Inputs.h"
#include "core/model/Measures.h"
#include "core/model/Numeric.h"
#include "core/model/Project.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tw::drawing {

std::optional<double> Input::number() const {
    if (!isNumeric(text)) return std::nullopt;
    return leadingNumber(text);
}

bool Input::empty() const { return trim(text).empty(); }

std::optional<double> AngleInput::value() const {
    const auto d = degrees.number();
    if (!d) return std::nullopt;
    const double m = minutes.number().value_or(0), s = seconds.number().value_or(0);
    // The sign of the degrees carries the whole angle.
    const double rest = m / 60 + s / 3600;
    return *d < 0 || trim(degrees.text).starts_with('-') ? *d - rest : *d + rest;
}

std::string AngleInput::text() const { return angleText(degrees.text, minutes.text, seconds.text); }

namespace {

template <std::size_t N> void name(std::array<Input, N>& items, Ctl ctl) {
    for (std::size_t i = 0; i < N; ++i)
        items[i].id = CtlId(ctl, static_cast<int>(i));
}

void name(AngleInput& a, Ctl h, Ctl m, Ctl s, int i) {
    a.degrees.id = CtlId(h, i);
    a.minutes.id = CtlId(m, i);
    a.seconds.id = CtlId(s, i);
}

// The elevations of the bent being entered, as the entry fields hold them.
void readEntry(const Project& p, BentInputs& in) {
    auto get = [&](Input& i) { i.text = p.text(i.id); };
    const std::string number = trim(p.text(Ctl::txtBentNoPI));
    in.bentLabel = number.empty() ? "Bent being entered" : "Bent " + number + " (being entered)";
    in.bottomComputed = p.text(Ctl::cboBtomCalPI) != "No";
    if (!in.bottomComputed) {
        get(in.bottomLeft);
        get(in.bottomRight);
    }
    for (int i = 0; i < in.beams; ++i)
        get(in.stepElevations[static_cast<std::size_t>(i)]);
    in.leftLevel = p.text(Ctl::cboTPLwinwall) == "Yes";
    in.rightLevel = p.text(Ctl::cboTPRwingwall) == "Yes";
    for (Input* i :
         {&in.leftTop, &in.leftFrontTop, &in.leftEndTop, &in.rightTop, &in.rightFrontTop, &in.rightEndTop,
          &in.leftEndPostTop, &in.rightEndPostTop, &in.backwallLeftTop, &in.backwallCenterTop, &in.backwallRightTop})
        get(*i);
}

// The elevations of one row of the bent table, in its column order.
void readRow(const Project& p, int row, BentInputs& in) {
    const BentTable& g = p.table();
    auto cell = [&](int c) { return c < g.cols() ? trim(g.cell(row, c)) : std::string(); };
    in.bentLabel = "Bent " + cell(0);
    in.bottomComputed = !isNumeric(cell(1)) && !isNumeric(cell(2));
    if (!in.bottomComputed) {
        in.bottomLeft.text = cell(1);
        in.bottomRight.text = cell(2);
    }
    const int n = in.beams;
    for (int i = 0; i < n; ++i)
        in.stepElevations[static_cast<std::size_t>(i)].text = cell(3 + i);
    if (!in.type || !isEndBent(*in.type)) return;
    // A wingwall whose two tops are equal was entered as level.
    auto wing = [&](int front, int end, bool& level, Input& single, Input& f, Input& e) {
        level = cell(front) == cell(end);
        (level ? single : f).text = cell(front);
        if (!level) e.text = cell(end);
    };
    wing(n + 3, n + 5, in.leftLevel, in.leftTop, in.leftFrontTop, in.leftEndTop);
    wing(n + 4, n + 6, in.rightLevel, in.rightTop, in.rightFrontTop, in.rightEndTop);
    if (in.type != BentType::EndWithBackwall) return;
    Input* tops[] = {&in.leftEndPostTop, &in.rightEndPostTop, &in.backwallLeftTop, &in.backwallCenterTop,
                     &in.backwallRightTop};
    for (int k = 0; k < 5; ++k)
        tops[k]->text = cell(n + 7 + k);
}

} // namespace

BentInputs::BentInputs() {
    capLength.id = Ctl::txtCapLength;
    capWidth.id = Ctl::txtCapWidth;
    capDepth.id = Ctl::txtCapDepth;
    transWidth.id = Ctl::txtTransWidth;
    longWidth.id = Ctl::txtLongWidth;
    bearingDistance.id = Ctl::txtCenterlineDistance;
    endPostWidth.id = Ctl::txtWidthEndPost;
    endPostLength.id = Ctl::txtLengthEndPost;
    wingwallLength.id = Ctl::txtWingwallLength;
    pileBoxDistance1.id = Ctl::txtPileBoxDistance1;
    pileBoxDistance2.id = Ctl::txtPileBoxDistance2;
    name(capSteps, Ctl::txtCapStep);
    name(centerlines, Ctl::txtCenterline);
    name(batterSpacing, Ctl::txtBatterPile);
    name(stepElevations, Ctl::txtEStepPI);
    for (int i = 0; i < 20; ++i)
        name(beamAngles[static_cast<std::size_t>(i)], Ctl::txtBeamangleH, Ctl::txtBeamangleM, Ctl::txtBeamangleS, i);
    // A wingwall angle is one control array: degrees, minutes, seconds.
    for (auto [wing, ctl] : {std::pair{&leftWing, Ctl::txtWinLAngle}, std::pair{&rightWing, Ctl::txtWinRAngle}}) {
        wing->degrees.id = CtlId(ctl, 0);
        wing->minutes.id = CtlId(ctl, 1);
        wing->seconds.id = CtlId(ctl, 2);
    }
    bottomLeft.id = Ctl::txtBtLCapPI;
    bottomRight.id = Ctl::txtBtRCapPI;
    leftTop.id = Ctl::txtLwingwallElevation;
    leftFrontTop.id = Ctl::txtElevationTopLeftfront;
    leftEndTop.id = Ctl::txtElevationTopLeftEnd;
    rightTop.id = Ctl::txtRwingwallElevation;
    rightFrontTop.id = Ctl::txtElevationTopRighFront;
    rightEndTop.id = Ctl::txtElevationTopRighEnd;
    leftEndPostTop.id = Ctl::txtTopLeftEndPost;
    rightEndPostTop.id = Ctl::txtTopRightEndPost;
    backwallLeftTop.id = Ctl::txtTopLeftBackwall;
    backwallCenterTop.id = Ctl::txtTopCentBackwall;
    backwallRightTop.id = Ctl::txtTopRightBackwall;
}

BentInputs readBentInputs(const Project& p, std::optional<int> row, const Looking& at) {
    BentInputs in;
    in.typeText = p.text(Ctl::cboTybent);
    in.type = bentTypeOf(in.typeText);
    for (int i = 0; i < 3; ++i)
        in.projectInfo[static_cast<std::size_t>(i)] = p.text(CtlId(Ctl::txtProjectInfo, i));
    in.beams = std::clamp(static_cast<int>(p.leading(Ctl::cboNoBeam)), 0, 20);
    auto get = [&](Input& i) { i.text = p.text(i.id); };
    for (Input* i :
         {&in.capLength, &in.capWidth, &in.capDepth, &in.transWidth, &in.longWidth, &in.bearingDistance,
          &in.endPostWidth, &in.endPostLength, &in.wingwallLength, &in.pileBoxDistance1, &in.pileBoxDistance2})
        get(*i);
    for (int i = 0; i < in.beams; ++i) {
        const auto k = static_cast<std::size_t>(i);
        get(in.capSteps[k]);
        get(in.centerlines[k]);
        get(in.beamAngles[k].degrees);
        get(in.beamAngles[k].minutes);
        get(in.beamAngles[k].seconds);
    }
    get(in.centerlines[20]);
    const std::string skew = p.text(Ctl::cboBSkew);
    in.skew = skew == "Right" ? Skew::Right : skew == "Left" ? Skew::Left : Skew::None;
    in.anglesAlike = p.text(Ctl::cboAngleType) != "No";
    in.wingsParallel = p.text(Ctl::cboWingParallel) != "No";
    for (AngleInput* a : {&in.leftWing, &in.rightWing}) {
        get(a->degrees);
        get(a->minutes);
        get(a->seconds);
    }
    in.pileBoxes = std::clamp(static_cast<int>(leadingNumber(p.text(Ctl::cboWingwallPileBox))), 0, 3);
    in.batteredDrawn = p.text(Ctl::cboBatterPile) == "Yes";
    in.battered = std::clamp(static_cast<int>(leadingNumber(p.text(Ctl::cboBatteredPile))), 0, 6);
    for (auto& s : in.batterSpacing)
        get(s);
    in.pileType = p.text(Ctl::cboTypeOfPile);

    const BentTable& g = p.table();
    if (row) {
        if (*row >= 1 && *row < g.rows())
            readRow(p, *row, in);
        else
            readEntry(p, in);
        return in;
    }
    const auto focus = at.focus;
    bool entering = focus && isBentEntry(*focus);
    std::vector<CtlId> entry = {Ctl::txtBentNoPI,
                                Ctl::txtBtLCapPI,
                                Ctl::txtBtRCapPI,
                                Ctl::txtLwingwallElevation,
                                Ctl::txtElevationTopLeftfront,
                                Ctl::txtElevationTopLeftEnd,
                                Ctl::txtRwingwallElevation,
                                Ctl::txtElevationTopRighFront,
                                Ctl::txtElevationTopRighEnd,
                                Ctl::txtTopLeftEndPost,
                                Ctl::txtTopRightEndPost,
                                Ctl::txtTopLeftBackwall,
                                Ctl::txtTopCentBackwall,
                                Ctl::txtTopRightBackwall};
    for (int i = 0; i < in.beams; ++i)
        entry.emplace_back(Ctl::txtEStepPI, i);
    for (const auto& id : entry)
        if (!trim(p.text(id)).empty()) entering = true;
    if (!entering && g.rows() > 1) {
        readRow(p, at.currentRow >= 1 && at.currentRow < g.rows() ? at.currentRow : g.rows() - 1, in);
        return in;
    }
    readEntry(p, in);
    return in;
}

std::optional<bool> inElevation(const CtlId& id) {
    if (isBentEntry(id)) return true;
    switch (id.ctl) {
    case Ctl::txtCapStep:
    case Ctl::txtCapDepth:
    case Ctl::cboTPLwinwall:
    case Ctl::cboTPRwingwall: return true;
    default: break;
    }
    const std::string_view name = ctlName(id.ctl);
    if (name.starts_with("txt") || name.starts_with("cbo")) return false;
    return std::nullopt;
}

CtlId drawnControl(const CtlId& focused) {
    switch (focused.ctl) {
    case Ctl::txtBeamangleM:
    case Ctl::txtBeamangleS: return CtlId(Ctl::txtBeamangleH, focused.index);
    case Ctl::txtWinLAngle:
    case Ctl::txtWinRAngle: return CtlId(focused.ctl, 0);
    default: return focused;
    }
}

} // namespace tw::drawing
