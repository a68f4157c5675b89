#include "core/App.h"
#include "core/form/Forms.h"
#include "core/inputfile/Codepage.h"
#include "core/inputfile/FileLayout.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

namespace tw {

namespace {

// Formats every field of the file into its columns. With `loud`, the
// writer of a save: it tells of too many bents, runs the pile-box check
// (which may exchange the distances or stop the file) and refuses a value
// too wide for its field. Without, it only describes the project.
class Writer : public FileWalk {
  public:
    Writer(const App& app, App* loud) : app_(app), loud_(loud) {}

    InputFileText compose() {
        const bool complete = walkInputFile(app_, *this);
        return {std::move(out_), !complete};
    }

  private:
    void title(int item) override { out_ += utf8ToCp1252(app_.text(CtlId(Ctl::txtProjectInfo, item))) + "\r\n"; }
    void record(const std::string& code) override { line_ = code; }
    void end() override { out_ += line_ + "\r\n"; }

    std::string field(int width, const std::string& text) const {
        try {
            return numericField(width, text);
        } catch (const RuntimeError&) {
            if (loud_) throw;
            std::string digits = trim(text);
            std::erase(digits, '.');
            return digits;
        }
    }
    void number(const CtlId& id) override { line_ += field(fileWidth(id), app_.text(id)); }
    void code(Ctl c) override { line_ += codeOf(c, app_.text(c)).value_or(""); }
    void count(Ctl c) override { line_ += countField(app_.text(c)); }
    void blanks(int n) override { line_ += std::string(n, ' '); }

    void bentCount() override {
        const std::string bents = std::to_string(app_.bentCounter);
        if (bents.size() > 2 && loud_)
            loud_->message("You can use a maximum of only 99 bents.", kAppTitle, MsgButtons::OK, MsgIcon::None);
        line_ += countField(bents);
    }
    void batteredCount() override {
        line_ += app_.listIndex(Ctl::cboBatterPile) == 0 ? countField(app_.text(Ctl::cboBatteredPile)) : "  ";
    }
    int bents() override { return app_.grid.rows() - 1; }
    void beginRow(int) override {}
    void bentNumber(int row) override { line_ += countField(trim(app_.grid.cell(row, 0))); }
    void cell(int row, int column, const CtlId& source) override {
        line_ += field(fileWidth(source), app_.grid.cell(row, column));
    }
    void endRow(int) override {}

    int batteredSpacings() override { return static_cast<int>(leadingNumber(app_.text(Ctl::cboBatteredPile))); }
    void pileBoxCount() override { line_ += trim(app_.text(Ctl::cboWingwallPileBox)); }

    bool pileBoxCheck() override {
        if (!loud_) return true;
        App& app = *loud_;
        const double first = leadingNumber(app.text(Ctl::txtPileBoxDistance1));
        const double second = leadingNumber(app.text(Ctl::txtPileBoxDistance2));
        if (second > first) {
            app.message("The first pile box value should be greater than the second pile box value",
                        "Incorrect Pile Box Value", MsgButtons::OKCancel, MsgIcon::None);
            const std::string t = app.text(Ctl::txtPileBoxDistance1);
            app.setText(Ctl::txtPileBoxDistance1, app.text(Ctl::txtPileBoxDistance2));
            app.setText(Ctl::txtPileBoxDistance2, t);
            return true;
        }
        if (second < first) return true;
        app.message("The first pile box should be greater then the second pile box!", "Warning", MsgButtons::OK,
                    MsgIcon::Critical);
        app.actions.selectTab(kPileBoxTab);
        app.setFocus(Ctl::txtPileBoxDistance1);
        app.selectAll(Ctl::txtPileBoxDistance1);
        return false;
    }

    const App& app_;
    App* loud_;
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

InputFileText composeInputFile(App& app) { return Writer(app, &app).compose(); }

std::string describeInputFile(const App& app) { return Writer(app, nullptr).compose().bytes; }

bool writeInputFile(App& app, const std::string& path) {
    bool written = false;
    app.guarded([&] {
        const InputFileText text = composeInputFile(app);
        const WriteResult w = app.system.writeFile(path, text.bytes);
        if (w.errorNumber) throw RuntimeError(w.errorNumber, w.error);
        app.saveFailed = text.aborted;
        written = true;
    });
    return written;
}

} // namespace tw
