#include "core/App.h"
#include "core/benttable/Layout.h"
#include "core/form/Forms.h"
#include "core/inputfile/Codepage.h"
#include "core/inputfile/Codes.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Numeric.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace tw {

namespace {

constexpr int kValuesPerLine = 10;
// "401" and fourteen blanks: the continued steps stand under the first line's.
const std::string kRowContinuation = "401" + std::string(14, ' ');

class Writer {
  public:
    explicit Writer(App& app) : app_(app), beams_(beamCount(app)), type_(bentTypeOf(app.text(Ctl::cboTybent))) {}

    InputFileText compose() {
        for (int i = 0; i < 3; ++i)
            line(utf8ToCp1252(app_.text(CtlId(Ctl::txtProjectInfo, i))));
        record100();
        record200();
        perBeam("300", "301", Ctl::txtCapStep);
        for (int r = 1; r < app_.grid.rows(); ++r)
            record400(r);
        perBeam("500", "501", Ctl::txtCenterline);
        record600();
        record700();
        if (endBent()) {
            if (!record800()) return {out_, true};
            for (int r = 1; r < app_.grid.rows(); ++r)
                record900(r);
        }
        return {out_, false};
    }

  private:
    bool endBent() const { return type_ && isEndBent(*type_); }
    void line(const std::string& l) { out_ += l + "\r\n"; }
    std::string code(Ctl c) { return codeOf(c, app_.text(c)).value_or(""); }
    std::string num(int width, const CtlId& id) { return numericField(width, app_.text(id)); }

    void record100() {
        std::string l = "100 " + code(Ctl::cboDrScale);
        const std::string bents = std::to_string(app_.bentCounter);
        if (bents.size() > 2)
            app_.message("You can use a maximum of only 99 bents.", kAppTitle, MsgButtons::OK, MsgIcon::None);
        l += countField(bents);
        l += countField(app_.text(Ctl::cboNoBeam));
        l += code(Ctl::cboBentDrawn) + code(Ctl::cboBSkew);
        l += app_.listIndex(Ctl::cboBatterPile) == 0 ? countField(app_.text(Ctl::cboBatteredPile)) : "  ";
        l += code(Ctl::cboTybent);
        for (Ctl c :
             {Ctl::cboAngleType, Ctl::cboWingParallel, Ctl::cboTPLwinwall, Ctl::cboTPRwingwall, Ctl::cboBatterPile})
            l += code(c);
        l += num(7, Ctl::txtCapLength) + num(6, CtlId(Ctl::txtCenterline, 20)) + num(6, CtlId(Ctl::txtBatterPile, 6));
        line(l);
    }

    void record200() {
        std::string l = "200" + num(6, Ctl::txtCapWidth) + num(6, Ctl::txtCapDepth) + code(Ctl::cboBearingHole) +
                        num(6, Ctl::txtCenterlineDistance);
        if (type_ != BentType::Intermediate) l += num(6, Ctl::txtTransWidth) + num(6, Ctl::txtLongWidth);
        line(l);
    }

    // One W6 value per beam; from the eleventh beam on a continuation line.
    void perBeam(const std::string& first, const std::string& next, Ctl array) {
        std::string l = first;
        for (int i = 0; i < beams_; ++i) {
            if (i == kValuesPerLine) {
                line(l);
                l = next;
            }
            l += num(6, CtlId(array, i));
        }
        line(l);
    }

    void record400(int r) {
        const Grid& g = app_.grid;
        std::string l =
            "400" + countField(trim(g.cell(r, 0))) + numericField(6, g.cell(r, 1)) + numericField(6, g.cell(r, 2));
        for (int k = 0; k < beams_; ++k) {
            if (k == kValuesPerLine) {
                line(l);
                l = kRowContinuation;
            }
            l += numericField(6, g.cell(r, 3 + k));
        }
        line(l);
    }

    void record600() {
        std::string l = "600";
        if (app_.text(Ctl::cboAngleType) == "No")
            for (int k = 0; k < beams_; ++k)
                l += num(3, CtlId(Ctl::txtBeamangleH, k)) + num(2, CtlId(Ctl::txtBeamangleM, k)) +
                     num(3, CtlId(Ctl::txtBeamangleS, k));
        line(l);
    }

    void record700() {
        std::string l = "700" + code(Ctl::cboTypeOfPile) + code(Ctl::cboStrirrups);
        if (endBent()) {
            const int count = static_cast<int>(leadingNumber(app_.text(Ctl::cboBatteredPile)));
            for (int i = 0; i < count && i < 6; ++i)
                l += num(6, CtlId(Ctl::txtBatterPile, i));
        }
        line(l);
    }

    // False when the pile-box check stops the file here.
    bool record800() {
        std::string l = "800" + num(6, Ctl::txtWidthEndPost) + num(6, Ctl::txtLengthEndPost) +
                        num(6, Ctl::txtWingwallLength) + angle(Ctl::txtWinLAngle);
        const bool parallel = app_.text(Ctl::cboWingParallel) == "Yes";
        // Nine blanks where the right angle's eight characters would stand.
        l += parallel ? std::string(9, ' ') : angle(Ctl::txtWinRAngle);
        const std::string boxes = trim(app_.text(Ctl::cboWingwallPileBox));
        l += boxes;
        if (boxes == "2") l += num(6, Ctl::txtPileBoxDistance1);
        if (boxes == "3") {
            if (parallel && !pileBoxCheck()) return false;
            l += num(6, Ctl::txtPileBoxDistance1) + num(6, Ctl::txtPileBoxDistance2);
        }
        line(l);
        return true;
    }

    std::string angle(Ctl a) { return num(3, CtlId(a, 0)) + num(2, CtlId(a, 1)) + num(3, CtlId(a, 2)); }

    bool pileBoxCheck() {
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
        app_.ctl(Ctl::SSTab1).value = kPileBoxTab;
        EventArgs tab;
        tab.index = kPileBoxTab;
        app_.fire(kFrmMain, Ctl::SSTab1, Event::Click, tab);
        app_.setFocus(Ctl::txtPileBoxDistance1);
        app_.selectAll(Ctl::txtPileBoxDistance1);
        return false;
    }

    void record900(int r) {
        std::string l = "900";
        for (int offset : endBentColumnOffsets(type_ == BentType::EndWithBackwall))
            l += numericField(6, app_.grid.cell(r, beams_ + offset));
        line(l);
    }

    App& app_;
    const int beams_;
    const std::optional<BentType> type_;
    std::string out_;
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
