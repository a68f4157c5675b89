// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/SketchTable.h"

namespace tw {

const std::vector<SketchEntry>& sketchTable() {
    // The small picture and the key of the full-size one differ for one sketch
    // ("cbwbw.jpg" with "cwbw"): that is the set of drawings as issued.
    static const std::vector<SketchEntry> table = {
        {Ctl::lblBearingView, BentType::Intermediate, "/Drawing/bdapb.jpg", "bdapb"},
        {Ctl::lblBearingView, BentType::EndWithBackwall, "/Drawing/bdawbw.jpg", "bdawbw"},
        {Ctl::lblBearingView, BentType::EndWithoutBackwall, "/Drawing/bdawobw.jpg", "bdawobw"},
        {Ctl::lblCenterlineView, BentType::Intermediate, "/Drawing/cbpb.jpg", "cbpb"},
        {Ctl::lblCenterlineView, BentType::EndWithBackwall, "/Drawing/cbwbw.jpg", "cwbw"},
        {Ctl::lblCenterlineView, BentType::EndWithoutBackwall, "/Drawing/cbwobw.jpg", "cbwobw"},
        {Ctl::lblElevationView, BentType::Intermediate, "/Drawing/epb.jpg", "epb"},
        {Ctl::lblElevationView, BentType::EndWithBackwall, "/Drawing/ewbw.jpg", "ewbw"},
        {Ctl::lblElevationView, BentType::EndWithoutBackwall, "/Drawing/ewobw.jpg", "ewobw"},
        {Ctl::lblViewCenterLine, BentType::Intermediate, "/Drawing/cpb.jpg", "cpb"},
        {Ctl::lblViewCenterLine, BentType::EndWithBackwall, "/Drawing/cwbw.jpg", "cwbw"},
        {Ctl::lblViewCenterLine, BentType::EndWithoutBackwall, "/Drawing/cwobw.jpg", "cwobw"},
        {Ctl::lblViewDimension, BentType::Intermediate, "/Drawing/bdpb.jpg", "bdpb"},
        {Ctl::lblViewDimension, BentType::EndWithBackwall, "/Drawing/bdwbw.jpg", "bdwbw"},
        {Ctl::lblViewDimension, BentType::EndWithoutBackwall, "/Drawing/bdwobw.jpg", "bdwobw"},
    };
    return table;
}

std::optional<SketchName> sketchNamed(const std::string& name) {
    for (const auto& s : sketchTable())
        if ("/Drawing/" + name + ".jpg" == s.picture) return SketchName{s.label, s.type};
    for (const auto& s : sketchTable())
        if (name == s.key) return SketchName{s.label, s.type};
    return std::nullopt;
}

std::string sketchTitle(const std::string& key) {
    // First match wins: the second "cwbw" and "cpb" entries are never reached.
    static const std::pair<const char*, const char*> titles[] = {
        {"cwobw", "Tarnwick without Backwall Centerlines Sketch"},
        {"cwbw", "Pile End Bent with Backwall Centerlines Sketch"},
        {"cpb", "Pile Intermediate Bent Centerlines Sketch"},
        {"bdwobw", "Tarnwick without Backwall Dimension Sketch "},
        {"bdwbw", "Pile End Bent with Backwall Dimension Sketch"},
        {"bdpb", "Pile Intermediate Bent Dimension Sketch"},
        {"ewobw", "Tarnwick without Backwall Elevation Sketch"},
        {"cwbw", "Pile End Bent with Backwall Elevation Sketch"},
        {"cpb", "Pile Intermediate Bent Elevation"},
        {"bdawobw", "Tarnwick without Backwall Bearing Dimension and Beam Angle Sketch"},
        {"bdawbw", "Pile End Bent with Backwall Bearing Dimension and Beam Angle Sketch"},
        {"bdapb", "Pile Intermediate Bent Bearing Dimension and Beam Angle Sketch"},
        {"cbwobw", "Tarnwick without Backwall Centerline Beam Sketch"},
        {"cbwbw", "Pile End Bent with Backwall Centerline Beam Sketch"},
        {"cbpb", "Pile Intermediate Bent Centerline Beam Sketch"},
    };
    for (const auto& [k, title] : titles)
        if (key == k) return title;
    return "";
}

} // namespace tw
