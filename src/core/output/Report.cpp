// SPDX-License-Identifier: Apache-2.0
#include "core/output/Report.h"

#include "core/drawing/BentInputs.h"
#include "core/drawing/Prompts.h"
#include "core/form/FormPrompts.h"
#include "core/form/Forms.h"
#include "core/output/UnitsSetting.h"

#include <optional>

namespace tw {

namespace {

const std::string kFeetUnit = "feet";

// A row of the form. Its prompt is the view's own text, or the caption of a
// label of the form (which the bent type and options change), or else the
// prompt the drawings use for the field.
struct RowDef {
    CtlId field;
    std::string prompt;
    std::optional<CtlId> label;
    std::string unit;
    // An angle: the degrees in `field`, then the minutes and the seconds.
    std::optional<std::pair<CtlId, CtlId>> minutesSeconds;
};

RowDef feet(const CtlId& field, std::string prompt = {}) { return {field, std::move(prompt), {}, kFeetUnit, {}}; }
RowDef choice(Ctl field) { return {field, choicePrompt(field), {}, {}, {}}; }
RowDef labelled(const CtlId& label, const CtlId& field, std::string unit = {}) {
    return {field, {}, label, std::move(unit), {}};
}

class Builder {
  public:
    Builder(const Session& s, Report& r) : s_(s), r_(r), in_(drawing::readBentInputs(s.project())) {}

    void section(const std::string& title, std::optional<CtlId> gate, const std::vector<RowDef>& rows) {
        ReportSection sec;
        sec.title = title;
        bool any = false;
        for (const auto& def : rows) {
            ReportRow row;
            row.prompt = promptOf(def);
            row.value = def.minutesSeconds ? angleText(def) : s_.text(def.field);
            row.unit = def.unit;
            row.shown = s_.ctl(def.field).visible;
            any = any || row.shown;
            sec.rows.push_back(std::move(row));
        }
        sec.shown = any && (!gate || s_.ctl(*gate).visible);
        r_.sections.push_back(std::move(sec));
    }

    std::string caption(const CtlId& id) const { return s_.ctl(id).caption; }
    bool visible(const CtlId& id) const { return s_.ctl(id).visible; }

  private:
    std::string promptOf(const RowDef& def) const {
        if (!def.prompt.empty()) return def.prompt;
        if (def.label) return caption(*def.label);
        return drawing::promptOf(def.field, in_);
    }

    // An angle in the one form the drawings use, 90°00'00".
    std::string angleText(const RowDef& def) const {
        return tw::angleText(s_.text(def.field), s_.text(def.minutesSeconds->first),
                             s_.text(def.minutesSeconds->second));
    }

    const Session& s_;
    Report& r_;
    drawing::BentInputs in_;
};

std::vector<RowDef> numbered(Ctl field, int count, const std::string& unit) {
    std::vector<RowDef> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back({CtlId(field, i), {}, {}, unit, {}});
    return rows;
}

RowDef angle(const CtlId& degrees, const CtlId& minutes, const CtlId& seconds, std::string prompt = {},
             std::optional<CtlId> label = {}) {
    return {degrees, std::move(prompt), label, {}, std::pair{minutes, seconds}};
}

} // namespace

Report buildReport(const Session& s, const std::string& path) {
    Report r;
    r.program = std::string(kAppTitle) + " " + versionText().substr(std::string("Version ").size());
    for (int i = 0; i < 3; ++i)
        r.projectInfo[static_cast<size_t>(i)] = s.text(CtlId(Ctl::txtProjectInfo, i));
    r.path = path;
    r.units = lengthUnits(s.system);

    Builder b(s, r);
    // The cap length's prompt is two labels of the form, the second shown for end bents only.
    std::string capPrompt = b.caption(Ctl::lblCCapLength);
    if (b.visible(Ctl::lblCCapLength1)) capPrompt += " " + b.caption(Ctl::lblCCapLength1);
    b.section(b.caption(Ctl::Frame1), Ctl::Frame1,
              {choice(Ctl::cboTybent), choice(Ctl::cboNoBeam), choice(Ctl::cboDrScale), choice(Ctl::cboBentDrawn),
               choice(Ctl::cboBSkew), choice(Ctl::cboAngleType), feet(Ctl::txtCapLength, capPrompt),
               labelled(Ctl::lblCCWingPwall, Ctl::cboWingParallel),
               labelled(Ctl::lblCCNoWinwall, Ctl::cboWingwallPileBox), labelled(Ctl::lblCCBatPile, Ctl::cboBatterPile),
               labelled(Ctl::Label10, Ctl::cboTPLwinwall), labelled(Ctl::Label11, Ctl::cboTPRwingwall)});
    b.section(b.caption(Ctl::Frame2), Ctl::Frame2, {feet(Ctl::txtCapWidth), feet(Ctl::txtCapDepth)});
    b.section(b.caption(Ctl::Frame3), Ctl::Frame3, {feet(Ctl::txtTransWidth), feet(Ctl::txtLongWidth)});
    b.section(b.caption(Ctl::Frame4), Ctl::Frame4, numbered(Ctl::txtCapStep, 20, kFeetUnit));
    b.section(b.caption(Ctl::Frame5), Ctl::Frame5,
              {feet(Ctl::txtWingwallLength),
               angle(CtlId(Ctl::txtWinLAngle, 0), CtlId(Ctl::txtWinLAngle, 1), CtlId(Ctl::txtWinLAngle, 2), {},
                     Ctl::lblWingWallLAngle),
               angle(CtlId(Ctl::txtWinRAngle, 0), CtlId(Ctl::txtWinRAngle, 1), CtlId(Ctl::txtWinRAngle, 2), {},
                     Ctl::lblWingWallRAngle)});
    b.section(b.caption(Ctl::Frame6), Ctl::Frame6,
              {labelled(Ctl::lblPileD1, Ctl::txtPileBoxDistance1, kFeetUnit),
               labelled(Ctl::lblPileD2, Ctl::txtPileBoxDistance2, kFeetUnit)});
    b.section(b.caption(Ctl::Frame7), Ctl::Frame7, {feet(Ctl::txtWidthEndPost), feet(Ctl::txtLengthEndPost)});
    b.section("Bearing Data", {}, {choice(Ctl::cboBearingHole), feet(Ctl::txtCenterlineDistance)});
    std::vector<RowDef> angles;
    for (int i = 0; i < 20; ++i)
        angles.push_back(
            angle(CtlId(Ctl::txtBeamangleH, i), CtlId(Ctl::txtBeamangleM, i), CtlId(Ctl::txtBeamangleS, i)));
    b.section("Beam Angles", Ctl::picOutterBeamAngle, angles);
    std::vector<RowDef> centerlines;
    for (int i = 0; i <= 20; ++i)
        centerlines.push_back(feet(CtlId(Ctl::txtCenterline, i), centerlinePrompt(i)));
    b.section("Centerline Locations", {}, centerlines);
    b.section("Pile Type", {}, {choice(Ctl::cboTypeOfPile), choice(Ctl::cboStrirrups)});
    std::vector<RowDef> battered = {choice(Ctl::cboBatteredPile)};
    for (int i = 0; i <= 6; ++i)
        battered.push_back(feet(CtlId(Ctl::txtBatterPile, i)));
    b.section(b.caption(Ctl::Frame18), Ctl::Frame18, battered);

    const BentTable& t = s.project().table();
    // Every column but the bent number holds an elevation.
    for (int c = 0; c < t.cols(); ++c) {
        r.headings.push_back(t.cell(0, c));
        r.headingUnits.push_back(c == 0 ? std::string() : kFeetUnit);
    }
    for (int row = 1; row < t.rows(); ++row)
        r.bents.push_back(t.rowCells(row));
    return r;
}

std::string unsavedSource(const std::string& path, const std::string& lastSaved) {
    if (path.empty()) return "Form not saved to a file";
    const std::string name = path.substr(path.find_last_of("/\\") + 1);
    return "Form with changes not saved to " + name + (lastSaved.empty() ? "" : ", last saved " + lastSaved);
}

} // namespace tw
