// SPDX-License-Identifier: Apache-2.0
#include "core/inputfile/ProjectReader.h"

#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Columns.h"
#include "core/model/Inputs.h"

#include <algorithm>

namespace tw {

namespace {

void setText(Project& p, const CtlId& id, const std::string& text) { p.setValue(inputIndex(id), InputValue(text)); }

// The item at `index` of a choice, and what its handler does to the
// project; what it does to the form alone (sections shown, rows laid out)
// has no part in the project.
void choose(Project& p, Ctl ctl, int index) {
    const auto items = choiceTexts(ctl);
    p.setValue(inputIndex(ctl), InputValue(index >= 0 ? items[static_cast<size_t>(index)] : std::string(), index));
    if (ctl != Ctl::cboTybent && ctl != Ctl::cboNoBeam) return;
    const auto type = bentTypeOf(p.text(Ctl::cboTybent));
    if (!type) return;
    if (ctl == Ctl::cboTybent) {
        // Each type's own answers, which the file's later fields override.
        const bool intermediate = *type == BentType::Intermediate;
        const auto drawn = choiceTexts(Ctl::cboBentDrawn);
        const auto yesOrNo = std::find(drawn.begin(), drawn.end(), intermediate ? "No" : "Yes");
        p.setValue(inputIndex(Ctl::cboBentDrawn), InputValue(*yesOrNo, static_cast<int>(yesOrNo - drawn.begin())));
        setText(p, Ctl::txtCenterlineDistance, intermediate ? "0.7500" : "1.5000");
    }
    layoutColumns(p.table(), *type, static_cast<std::int16_t>(p.beams()));
}

int indexOf(Ctl ctl, const std::string& text) {
    const auto items = choiceTexts(ctl);
    const auto it = std::find(items.begin(), items.end(), text);
    return it == items.end() ? -1 : static_cast<int>(it - items.begin());
}

// The reset's order: the bent type and the number of beams first, their
// handlers giving what later defaults may set again.
Project makeDefault() {
    Project p;
    for (Ctl c : {Ctl::cboDrScale, Ctl::cboNoBeam, Ctl::cboTybent})
        choose(p, c, inputRule(c).defaultIndex);
    for (const auto& id : projectInputs()) {
        if (id.ctl == Ctl::cboDrScale || id.ctl == Ctl::cboNoBeam || id.ctl == Ctl::cboTybent ||
            id.ctl == Ctl::txtCenterlineDistance)
            continue;
        const InputRule& r = inputRule(id);
        if (r.kind == InputKind::Choice)
            choose(p, id.ctl, r.defaultIndex);
        else
            setText(p, id, r.defaultText);
    }
    return p;
}

// Fills the project as the file is read.
class ProjectFill : public ReadSink {
  public:
    explicit ProjectFill(Project& p) : p_(p) {}

    const Project& project() const override { return p_; }
    void setText(const CtlId& id, const std::string& text) override { tw::setText(p_, id, text); }
    bool setChoice(Ctl ctl, const std::string& text) override {
        const int index = indexOf(ctl, text);
        if (index < 0) return false;
        choose(p_, ctl, index);
        return true;
    }
    void addBent(const std::string& tabbedCells, const std::string& number) override {
        p_.table().addItem(tabbedCells);
        p_.bentRegister.push_back(number);
    }
    void setCell(int row, int column, const std::string& text) override { p_.table().setCell(row, column, text); }
    void setBentCounter(std::int16_t count) override { p_.bentCounter = count; }
    void fewerBents(int listed, int held) override { fewer = fewerBentsText(listed, held); }

    std::string fewer;

  private:
    Project& p_;
};

} // namespace

const Project& defaultProject() {
    static const Project p = makeDefault();
    return p;
}

std::string ProjectRead::errorText() const {
    return error ? standardErrorText(error->number(), error->description()) : std::string();
}

ProjectRead readProject(const std::string& bytes) {
    ProjectRead read{defaultProject(), {}, {}, std::nullopt};
    ProjectFill fill(read.project);
    try {
        parseInputFile(bytes, fill, &read.notes);
    } catch (const RuntimeError& e) {
        read.error = e;
    } catch (const std::exception& e) {
        read.error = internalError(e.what());
    } catch (...) {
        read.error = internalError("an unknown failure");
    }
    if (read.ok() && !fill.fewer.empty()) {
        read.hint = fill.fewer;
        read.hint[0] = 'T';
    }
    return read;
}

} // namespace tw
