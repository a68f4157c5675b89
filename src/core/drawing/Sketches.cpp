// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/Sketches.h"

#include "core/drawing/SketchTable.h"

namespace tw::drawing {

BentInputs typicalProject(BentType type) {
    BentInputs in;
    in.type = type;
    in.typeText = type == BentType::Intermediate      ? kIntermediate
                  : type == BentType::EndWithBackwall ? kEndWithBackwall
                                                      : kEndWithoutBackwall;
    const bool end = isEndBent(type);
    in.beams = 3;
    in.capLength.text = "36.0000";
    in.capWidth.text = "3.0000";
    in.capDepth.text = "2.5000";
    in.transWidth.text = "2.0000";
    in.longWidth.text = "2.0000";
    in.bearingDistance.text = end ? "1.5000" : "0.7500";
    in.endPostWidth.text = "1.0000";
    in.endPostLength.text = "4.0000";
    in.wingwallLength.text = "12.0000";
    in.pileBoxDistance1.text = "10.0000";
    in.pileBoxDistance2.text = "6.5000";
    in.capSteps[0].text = in.capSteps[1].text = in.capSteps[2].text = "12.0000";
    in.centerlines[0].text = "6.0000";
    in.centerlines[1].text = in.centerlines[2].text = "12.0000";
    in.centerlines[20].text = "6.0000";
    in.skew = Skew::Right;
    in.anglesAlike = true;
    in.beamAngles[0].degrees.text = "80";
    in.beamAngles[0].minutes.text = "0";
    in.beamAngles[0].seconds.text = "0.0";
    in.wingsParallel = false;
    in.leftWing.degrees.text = "80";
    in.rightWing.degrees.text = "100";
    for (AngleInput* a : {&in.leftWing, &in.rightWing}) {
        a->minutes.text = "0";
        a->seconds.text = "00.0";
    }
    in.pileBoxes = 3;
    in.batteredDrawn = end;
    in.battered = 2;
    in.batterSpacing[0].text = "9.0000";
    in.batterSpacing[1].text = "18.0000";
    in.batterSpacing[6].text = "9.0000";
    in.pileType = "PSC, 14 IN SQ";

    in.bottomComputed = false;
    in.bottomLeft.text = "96.50";
    in.bottomRight.text = "96.25";
    in.stepElevations[0].text = "100.00";
    in.stepElevations[1].text = "100.25";
    in.stepElevations[2].text = "100.50";
    in.leftLevel = false;
    in.leftFrontTop.text = "104.00";
    in.leftEndTop.text = "101.50";
    in.rightLevel = true;
    in.rightTop.text = "104.25";
    in.leftEndPostTop.text = "105.50";
    in.rightEndPostTop.text = "105.75";
    in.backwallLeftTop.text = "105.00";
    in.backwallCenterTop.text = "105.25";
    in.backwallRightTop.text = "105.00";
    return in;
}

std::optional<Sketch> sketchNamed(const std::string& name) {
    const auto named = tw::sketchNamed(name);
    if (!named) return std::nullopt;
    Sketch s{typicalProject(named->type), {}};
    DrawOptions& o = s.options;
    BentInputs& in = s.inputs;
    // What is not the sketch's subject is left out where it would crowd the subject.
    auto plainWingwalls = [&] {
        in.pileBoxes = 0;
        in.batteredDrawn = false;
        in.wingsParallel = true;
        in.leftWing.degrees.text = "90";
    };
    o.labels = Labels::Prompts;
    switch (named->label) {
    case Ctl::lblBearingView:
        o.elevation = false;
        o.topics = kBearing | kBeamAngles | kBeamNumbers;
        o.heading = "Bearing Dimension and Beam Angle";
        break;
    case Ctl::lblCenterlineView:
        o.elevation = false;
        o.topics = kBeamSpacing | kCapLength | kBeamNumbers;
        o.heading = "Centerline of Beams";
        plainWingwalls();
        in.centerlines[0].text = in.centerlines[20].text = "9.0000";
        in.centerlines[1].text = in.centerlines[2].text = "9.0000";
        break;
    case Ctl::lblElevationView:
        o.plan = false;
        o.topics = kCapSteps | kStepElevations | kBottom | kWingwallTops | kBackwallTops;
        o.heading = "Elevation";
        break;
    case Ctl::lblViewCenterLine:
        o.elevation = false;
        o.topics = kWingwalls | kPileBoxes | kBatteredPiles | kBeamNumbers;
        if (named->type == BentType::Intermediate) o.topics |= kBearing | kBeamAngles;
        o.heading = "Centerlines";
        in.wingwallLength.text = "16.0000";
        in.pileBoxDistance1.text = "13.0000";
        in.pileBoxDistance2.text = "8.0000";
        in.batterSpacing[0].text = in.batterSpacing[6].text = "12.0000";
        in.batterSpacing[1].text = "12.0000";
        break;
    default:
        o.topics = kCapWidth | kFillets | kEndPosts | kMinDepth;
        o.heading = "Dimensions";
        plainWingwalls();
        in.transWidth.text = in.longWidth.text = "3.0000";
        break;
    }
    return s;
}

} // namespace tw::drawing
