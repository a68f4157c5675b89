// SPDX-License-Identifier: Apache-2.0
#include "core/Errors.h"
#include "core/inputfile/Codepage.h"
#include "core/inputfile/FileLayout.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Project.h"

namespace tw {

namespace {

// Formats every field of the file into its columns. With hooks, the
// writer of a save: it tells of too many bents, runs the pile-box check
// (which may exchange the distances or stop the file) and refuses a value
// too wide for its field. Without, it only describes the project.
class Writer : public FileWalk {
  public:
    Writer(const Project& project, SaveHooks* hooks) : project_(project), hooks_(hooks) {}

    InputFileText compose() {
        const bool complete = walkInputFile(project_, *this);
        return {std::move(out_), !complete};
    }

  private:
    void title(int item) override { out_ += utf8ToCp1252(project_.text(CtlId(Ctl::txtProjectInfo, item))) + "\r\n"; }
    void record(const std::string& code) override { line_ = code; }
    void end() override { out_ += line_ + "\r\n"; }

    std::string field(int width, const std::string& text) const {
        try {
            return numericField(width, text);
        } catch (const RuntimeError&) {
            if (hooks_) throw;
            std::string digits = trim(text);
            std::erase(digits, '.');
            return digits;
        }
    }
    void number(const CtlId& id) override { line_ += field(fileWidth(id), project_.text(id)); }
    void code(Ctl c) override { line_ += codeOf(c, project_.text(c)).value_or(""); }
    void count(Ctl c) override { line_ += countField(project_.text(c)); }
    void blanks(int n) override { line_ += std::string(n, ' '); }

    void bentCount() override {
        const std::string bents = std::to_string(project_.bentCounter);
        if (bents.size() > 2 && hooks_) hooks_->tooManyBents();
        line_ += countField(bents);
    }
    void batteredCount() override {
        line_ +=
            project_.value(Ctl::cboBatterPile).listIndex == 0 ? countField(project_.text(Ctl::cboBatteredPile)) : "  ";
    }
    int bents() override { return project_.bents(); }
    void beginRow(int) override {}
    void bentNumber(int row) override { line_ += countField(trim(project_.table().cell(row, 0))); }
    void cell(int row, int column, const CtlId& source) override {
        line_ += field(fileWidth(source), project_.table().cell(row, column));
    }
    void endRow(int) override {}

    int batteredSpacings() override { return static_cast<int>(leadingNumber(project_.text(Ctl::cboBatteredPile))); }
    void pileBoxCount() override { line_ += trim(project_.text(Ctl::cboWingwallPileBox)); }

    bool pileBoxCheck() override { return !hooks_ || hooks_->pileBoxCheck(); }

    const Project& project_;
    SaveHooks* hooks_;
    std::string out_;
    std::string line_;
};

} // namespace

std::string numericField(int width, const std::string& text) {
    if (!isNumeric(text)) return std::string(width, ' ');
    std::string t = trim(text);
    std::erase(t, '.');
    if (static_cast<int>(t.size()) > width)
        throw RuntimeError(err::kInvalidCall, "Invalid procedure call or argument (the value " + trim(text) +
                                                  " does not fit its " + std::to_string(width) + "-column field)");
    return t + std::string(width - t.size(), ' ');
}

std::string countField(const std::string& text) {
    return text.size() >= 2 ? text : std::string(2 - text.size(), ' ') + text;
}

InputFileText composeInputFile(const Project& project, SaveHooks& hooks) { return Writer(project, &hooks).compose(); }

std::string describeInputFile(const Project& project) { return Writer(project, nullptr).compose().bytes; }

} // namespace tw
