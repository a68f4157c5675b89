#include "core/App.h"
#include "core/form/Forms.h"
#include "core/inputfile/Codepage.h"
#include "core/inputfile/FileLayout.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace tw {

namespace {

// Formats every field of the file into its columns.
class Writer : public FileWalk {
  public:
    explicit Writer(App& app) : app_(app) {}

    InputFileText compose() {
        const bool complete = walkInputFile(app_, *this);
        return {std::move(out_), !complete};
    }

  private:
    void title(int item) override { out_ += utf8ToCp1252(app_.text(CtlId(Ctl::txtProjectInfo, item))) + "\r\n"; }
    void record(const std::string& code) override { line_ = code; }
    void end() override { out_ += line_ + "\r\n"; }

    void number(const CtlId& id) override { line_ += numericField(fileWidth(id), app_.text(id)); }
    void code(Ctl c) override { line_ += codeOf(c, app_.text(c)).value_or(""); }
    void count(Ctl c) override { line_ += countField(app_.text(c)); }
    void blanks(int n) override { line_ += std::string(n, ' '); }

    void bentCount() override {
        const std::string bents = std::to_string(app_.bentCounter);
        if (bents.size() > 2)
            app_.message("You can use a maximum of only 99 bents.", kAppTitle, MsgButtons::OK, MsgIcon::None);
        line_ += countField(bents);
    }
    void batteredCount() override {
        line_ += app_.listIndex(Ctl::cboBatterPile) == 0 ? countField(app_.text(Ctl::cboBatteredPile)) : "  ";
    }
    int bents() override { return app_.grid.rows() - 1; }
    void beginRow(int) override {}
    void bentNumber(int row) override { line_ += countField(trim(app_.grid.cell(row, 0))); }
    void cell(int row, int column, const CtlId& source) override {
        line_ += numericField(fileWidth(source), app_.grid.cell(row, column));
    }
    void endRow(int) override {}

    int batteredSpacings() override { return static_cast<int>(leadingNumber(app_.text(Ctl::cboBatteredPile))); }
    void pileBoxCount() override { line_ += trim(app_.text(Ctl::cboWingwallPileBox)); }

    bool pileBoxCheck() override {
        const double first = leadingNumber(app_.text(Ctl::txtPileBoxDistance1));
        const double second = leadingNumber(app_.text(Ctl::txtPileBoxDistance2));
        if (second > first) {
            app_.message("The first pile box value should be greater than the second pile box value",
                         "Incorrect Pile Box Value", MsgButtons::OKCancel, MsgIcon::None);
            const std::string t = app_.text(Ctl::txtPileBoxDistance1);
            app_.setText(Ctl::txtPileBoxDistance1, app_.text(Ctl::txtPileBoxDistance2));
            app_.setText(Ctl::txtPileBoxDistance2, t);
            return true;
        }
        if (second < first) return true;
        app_.message("The first pile box should be greater then the second pile box!", "Warning", MsgButtons::OK,
                     MsgIcon::Critical);
        app_.actions.selectTab(kPileBoxTab);
        app_.setFocus(Ctl::txtPileBoxDistance1);
        app_.selectAll(Ctl::txtPileBoxDistance1);
        return false;
    }

    App& app_;
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

InputFileText composeInputFile(App& app) { return Writer(app).compose(); }

bool writeInputFile(App& app, const std::string& path) {
    namespace fs = std::filesystem;
    const fs::path target(path);
    const fs::path temp = target.parent_path() / ('.' + target.filename().string() + ".saving");
    try {
        const InputFileText text = composeInputFile(app);
        {
            std::ofstream out(temp, std::ios::binary | std::ios::trunc);
            if (!out) throw RuntimeError(err::kPathNotFound, "Path/File access error: cannot create " + path);
            out.write(text.bytes.data(), static_cast<std::streamsize>(text.bytes.size()));
            out.flush();
            if (!out) throw RuntimeError(err::kDeviceIo, "Device I/O error while writing " + path);
        }
        std::error_code ec;
        fs::rename(temp, target, ec);
        if (ec) throw RuntimeError(err::kPermissionDenied, "Permission denied: cannot replace " + path);
        app.saveFailed = text.aborted;
        return true;
    } catch (const RuntimeError& e) {
        std::error_code ignored;
        fs::remove(temp, ignored);
        app.reportError(e);
        return false;
    }
}

} // namespace tw
