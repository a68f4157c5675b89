// SPDX-License-Identifier: Apache-2.0
#include "core/output/Report.h"

#include "core/drawing/BentInputs.h"
#include "core/drawing/Prompts.h"
#include "core/form/FormPrompts.h"
#include "core/form/Forms.h"
#include "core/model/Project.h"

#include <optional>

namespace tw {

namespace {

const std::string kFeetUnit = "feet";

// A row of the form: its input, the prompt the form shows beside it, its
// unit, and whether the form shows it for these inputs.
struct RowDef {
    CtlId field;
    std::string prompt;
    std::string unit;
    bool shown = true;
    // An angle: the degrees in `field`, then the minutes and the seconds.
    std::optional<std::pair<CtlId, CtlId>> minutesSeconds;
};

class Builder {
  public:
    Builder(const Project& p, Report& r) : p_(p), r_(r), in_(drawing::readBentInputs(p)) {}

    const drawing::BentInputs& in() const { return in_; }

    // A section of the form, shown when `shown` and some row of it is.
    void section(Ctl frame, bool shown, const std::vector<RowDef>& rows) { section(designCaption(frame), shown, rows); }
    void section(const std::string& title, bool shown, const std::vector<RowDef>& rows) {
        ReportSection sec;
        sec.title = title;
        bool any = false;
        for (const auto& def : rows) {
            ReportRow row;
            row.field = def.field;
            row.prompt = def.prompt;
            row.value = def.minutesSeconds ? angleText(def) : p_.text(def.field);
            row.unit = def.unit;
            row.shown = def.shown;
            any = any || row.shown;
            sec.rows.push_back(std::move(row));
        }
        sec.shown = any && shown;
        r_.sections.push_back(std::move(sec));
    }

    RowDef feet(const CtlId& field, bool shown = true) const {
        return {field, drawing::promptOf(field, in_), kFeetUnit, shown, {}};
    }
    static RowDef choice(Ctl field, bool shown = true) {
        const std::string prompt = choicePrompt(field);
        return {field, prompt.empty() ? designCaption(questionLabel(field)) : prompt, {}, shown, {}};
    }
    RowDef angle(Ctl field, int degreesAt, Ctl minutes, Ctl seconds, bool shown) const {
        const CtlId degrees(field, degreesAt);
        return {degrees,
                drawing::promptOf(degrees, in_),
                {},
                shown,
                std::pair{CtlId(minutes, degreesAt), CtlId(seconds, degreesAt)}};
    }
    RowDef wingwallAngle(Ctl field, bool shown) const {
        return {CtlId(field, 0),
                drawing::promptOf(CtlId(field, 0), in_),
                {},
                shown,
                std::pair{CtlId(field, 1), CtlId(field, 2)}};
    }

  private:
    // An angle in the one form the drawings use, 90°00'00".
    std::string angleText(const RowDef& def) const {
        return tw::angleText(p_.text(def.field), p_.text(def.minutesSeconds->first),
                             p_.text(def.minutesSeconds->second));
    }

    const Project& p_;
    Report& r_;
    drawing::BentInputs in_;
};

} // namespace

Report buildReport(const Project& p, const std::string& path) {
    Report r;
    r.program = std::string(kAppTitle) + " " + versionText().substr(std::string("Version ").size());
    for (int i = 0; i < 3; ++i)
        r.projectInfo[static_cast<size_t>(i)] = p.text(CtlId(Ctl::txtProjectInfo, i));
    r.path = path;

    // What the form shows once these inputs are on it: the bent type brings
    // the end bent's questions and sections, each answer the rows it asks for.
    Builder b(p, r);
    const drawing::BentInputs& in = b.in();
    const BentType type = in.type.value_or(BentType::EndWithoutBackwall); // an unknown type leaves the reset layout
    const bool end = isEndBent(type);
    const int beams = p.beams();

    b.section(Ctl::Frame1, true,
              {Builder::choice(Ctl::cboTybent), Builder::choice(Ctl::cboNoBeam), Builder::choice(Ctl::cboDrScale),
               Builder::choice(Ctl::cboBentDrawn), Builder::choice(Ctl::cboBSkew), Builder::choice(Ctl::cboAngleType),
               b.feet(Ctl::txtCapLength), Builder::choice(Ctl::cboWingParallel, end),
               Builder::choice(Ctl::cboWingwallPileBox, end), Builder::choice(Ctl::cboBatterPile, end),
               Builder::choice(Ctl::cboTPLwinwall, end), Builder::choice(Ctl::cboTPRwingwall, end)});
    b.section(Ctl::Frame2, true, {b.feet(Ctl::txtCapWidth), b.feet(Ctl::txtCapDepth)});
    b.section(Ctl::Frame3, end, {b.feet(Ctl::txtTransWidth), b.feet(Ctl::txtLongWidth)});
    std::vector<RowDef> steps;
    for (int i = 0; i < 20; ++i)
        steps.push_back(b.feet(CtlId(Ctl::txtCapStep, i), i < beams));
    b.section(Ctl::Frame4, true, steps);
    b.section(Ctl::Frame5, end,
              {b.feet(Ctl::txtWingwallLength), b.wingwallAngle(Ctl::txtWinLAngle, true),
               b.wingwallAngle(Ctl::txtWinRAngle, !in.wingsParallel)});
    b.section(
        Ctl::Frame6, end && in.pileBoxes >= 2,
        {b.feet(Ctl::txtPileBoxDistance1, in.pileBoxes >= 2), b.feet(Ctl::txtPileBoxDistance2, in.pileBoxes == 3)});
    b.section(Ctl::Frame7, type == BentType::EndWithBackwall,
              {b.feet(Ctl::txtWidthEndPost), b.feet(Ctl::txtLengthEndPost)});
    b.section("Bearing Data", true, {Builder::choice(Ctl::cboBearingHole), b.feet(Ctl::txtCenterlineDistance)});
    std::vector<RowDef> angles;
    for (int i = 0; i < 20; ++i)
        angles.push_back(b.angle(Ctl::txtBeamangleH, i, Ctl::txtBeamangleM, Ctl::txtBeamangleS,
                                 in.anglesAlike ? i == 0 : i < beams));
    b.section("Beam Angles", true, angles);
    std::vector<RowDef> centerlines;
    for (int i = 0; i <= 20; ++i) {
        RowDef row = b.feet(CtlId(Ctl::txtCenterline, i), i == 0 || i == 20 || i < beams);
        row.prompt = centerlinePrompt(i);
        centerlines.push_back(std::move(row));
    }
    b.section("Centerline Locations", true, centerlines);
    b.section("Pile Type", true, {Builder::choice(Ctl::cboTypeOfPile), Builder::choice(Ctl::cboStrirrups)});
    std::vector<RowDef> battered = {Builder::choice(Ctl::cboBatteredPile)};
    for (int i = 0; i <= 6; ++i)
        battered.push_back(b.feet(CtlId(Ctl::txtBatterPile, i), i == 6 || i < in.battered));
    b.section(Ctl::Frame18, end && in.batteredDrawn, battered);

    const BentTable& t = p.table();
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
