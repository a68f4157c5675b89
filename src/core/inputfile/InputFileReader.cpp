#include "core/App.h"
#include "core/benttable/Layout.h"
#include "core/inputfile/Codepage.h"
#include "core/inputfile/Codes.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Numeric.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

namespace tw {

namespace {

constexpr int kValuesPerLine = 10;

// Decimals the file leaves implied, per kind of value.
constexpr int kDimension = 4;
constexpr int kElevation = 2;
constexpr int kWhole = 0;
constexpr int kSeconds = 1;

std::vector<std::string> splitLines(const std::string& bytes) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < bytes.size()) {
        size_t end = bytes.find('\n', start);
        if (end == std::string::npos) end = bytes.size();
        std::string l = bytes.substr(start, end - start);
        if (!l.empty() && l.back() == '\r') l.pop_back();
        lines.push_back(std::move(l));
        start = end + 1;
    }
    return lines;
}

// A field with its point put back before its last `decimals` digits.
std::string restore(const std::string& field, int decimals) {
    std::string t = trim(field);
    if (decimals == 0) return t;
    if (static_cast<int>(t.size()) < decimals + 1) return "";
    t.insert(t.size() - decimals, 1, '.');
    return t == "." ? "" : t;
}

class Reader {
  public:
    Reader(App& app, const std::string& bytes) : app_(app), lines_(splitLines(bytes)) {}

    void read() {
        for (int i = 0; i < 3; ++i)
            app_.setText(CtlId(Ctl::txtProjectInfo, i), cp1252ToUtf8(next("")));
        record100();
        record200();
        perBeam("300", "301", Ctl::txtCapStep);
        for (int b = 0; b < bents_; ++b)
            record400();
        perBeam("500", "501", Ctl::txtCenterline);
        record600();
        record700();
        if (endBent()) {
            record800();
            for (int r = 1; r <= bents_; ++r)
                record900(r);
        }
        app_.bentCounter = static_cast<std::int16_t>(bents_);
    }

  private:
    [[noreturn]] void fail(int number, const std::string& what) const {
        throw RuntimeError(number, what + " (line " + std::to_string(lineNo_) + ")");
    }

    // The next line, which must begin with `code` (title lines have none).
    const std::string& next(const std::string& code) {
        if (lineNo_ >= static_cast<int>(lines_.size())) {
            ++lineNo_;
            fail(err::kInputPastEnd,
                 code.empty() ? "Input past end of file" : "Input past end of file: record " + code + " is missing");
        }
        line_ = &lines_[lineNo_++];
        if (line_->compare(0, code.size(), code) != 0)
            fail(err::kInvalidProperty,
                 "Invalid file format: record " + code + " expected, found \"" + line_->substr(0, 12) + "\"");
        col_ = static_cast<int>(code.size());
        return *line_;
    }
    // The next `width` columns of the current line.
    std::string take(int width) {
        if (col_ + width > static_cast<int>(line_->size()))
            fail(err::kInputPastEnd, "Input past end of line: the line is too short for its fields");
        std::string s = line_->substr(col_, width);
        col_ += width;
        return s;
    }
    bool more(int width) const { return col_ + width <= static_cast<int>(line_->size()); }

    void setCode(Ctl ctl, const std::string& code) {
        auto text = textOfCode(ctl, code);
        if (!text)
            fail(err::kInvalidProperty,
                 "Invalid property value: code \"" + code + "\" of " + std::string(ctlName(ctl)));
        app_.setComboText(ctl, *text);
    }
    void setItem(Ctl ctl, const std::string& text) {
        try {
            app_.setComboText(ctl, text);
        } catch (const RuntimeError&) {
            fail(err::kInvalidProperty, "Invalid property value: \"" + text + "\" for " + std::string(ctlName(ctl)));
        }
    }
    void setNumber(const CtlId& id, int width, int decimals) { app_.setText(id, restore(take(width), decimals)); }
    int count(const std::string& field) {
        const std::string t = trim(field);
        if (t.empty()) return 0;
        if (!isNumeric(t) || t.find_first_of(".eE") != std::string::npos)
            fail(err::kTypeMismatch, "Type mismatch: \"" + field + "\" is not a count");
        return std::stoi(t);
    }
    bool endBent() const { return type_ && isEndBent(*type_); }

    void record100() {
        next("100 ");
        const std::string scale = take(1);
        bents_ = count(take(2));
        if (bents_ < 0) fail(err::kTypeMismatch, "Type mismatch: a negative number of bents");
        const std::string beams = trim(take(2));
        take(1); // the bent-drawn code stands in column 11 alone
        const std::string drawn = ' ' + take(1);
        const std::string skew = take(1);
        batteredCount_ = trim(take(2));
        const std::string type = take(1);
        std::string yesNo[5];
        for (auto& c : yesNo)
            c = take(1);

        // The bent type and the number of beams first: their handlers lay out
        // the sections and the columns, and set type defaults read later.
        setCode(Ctl::cboDrScale, scale);
        setItem(Ctl::cboNoBeam, beams);
        setCode(Ctl::cboTybent, type);
        type_ = bentTypeOf(app_.text(Ctl::cboTybent));
        beams_ = beamCount(app_);
        setCode(Ctl::cboBentDrawn, drawn);
        setCode(Ctl::cboBSkew, skew);
        if (!batteredCount_.empty()) setItem(Ctl::cboBatteredPile, batteredCount_);
        const Ctl switches[] = {Ctl::cboAngleType, Ctl::cboWingParallel, Ctl::cboTPLwinwall, Ctl::cboTPRwingwall,
                                Ctl::cboBatterPile};
        for (int i = 0; i < 5; ++i)
            setCode(switches[i], yesNo[i]);
        setNumber(Ctl::txtCapLength, 7, kDimension);
        setNumber(CtlId(Ctl::txtCenterline, 20), 6, kDimension);
        setNumber(CtlId(Ctl::txtBatterPile, 6), 6, kDimension);
    }

    void record200() {
        next("200");
        setNumber(Ctl::txtCapWidth, 6, kDimension);
        setNumber(Ctl::txtCapDepth, 6, kDimension);
        setCode(Ctl::cboBearingHole, take(2));
        setNumber(Ctl::txtCenterlineDistance, 6, kDimension);
        if (endBent()) {
            setNumber(Ctl::txtTransWidth, 6, kDimension);
            setNumber(Ctl::txtLongWidth, 6, kDimension);
        }
    }

    void perBeam(const std::string& first, const std::string& cont, Ctl array) {
        next(first);
        for (int i = 0; i < beams_; ++i) {
            if (i == kValuesPerLine) next(cont);
            setNumber(CtlId(array, i), 6, kDimension);
        }
    }

    void record400() {
        next("400");
        std::vector<std::string> cells;
        cells.push_back(trim(take(2)));
        cells.push_back(restore(take(6), kElevation));
        cells.push_back(restore(take(6), kElevation));
        for (int k = 0; k < beams_; ++k) {
            if (k == kValuesPerLine) {
                next("401");
                take(14);
            }
            cells.push_back(restore(take(6), kElevation));
        }
        std::string row;
        for (const auto& c : cells)
            row += c + '\t';
        app_.grid.addItem(row);
        app_.bentRegister.push_back(cells[0]);
    }

    void record600() {
        next("600");
        if (app_.text(Ctl::cboAngleType) != "No") return;
        for (int k = 0; k < beams_; ++k) {
            setNumber(CtlId(Ctl::txtBeamangleH, k), 3, kWhole);
            setNumber(CtlId(Ctl::txtBeamangleM, k), 2, kWhole);
            setNumber(CtlId(Ctl::txtBeamangleS, k), 3, kSeconds);
        }
    }

    void record700() {
        next("700");
        setCode(Ctl::cboTypeOfPile, take(2));
        setCode(Ctl::cboStrirrups, take(2));
        if (!endBent()) return;
        // The spacings follow the count the file names; a file whose piles are
        // not drawn names none, so the line itself tells how many there are.
        int k = batteredCount_.empty() ? 0 : count(batteredCount_);
        if (batteredCount_.empty()) {
            while (k < 6 && more(6 * (k + 1)))
                ++k;
            if (k > 0) setItem(Ctl::cboBatteredPile, std::to_string(k));
        }
        for (int i = 0; i < k && i < 6; ++i)
            setNumber(CtlId(Ctl::txtBatterPile, i), 6, kDimension);
    }

    void record800() {
        next("800");
        setNumber(Ctl::txtWidthEndPost, 6, kDimension);
        setNumber(Ctl::txtLengthEndPost, 6, kDimension);
        setNumber(Ctl::txtWingwallLength, 6, kDimension);
        angle(Ctl::txtWinLAngle);
        if (app_.text(Ctl::cboWingParallel) == "Yes")
            take(9);
        else
            angle(Ctl::txtWinRAngle);
        const std::string boxes = trim(take(1));
        setItem(Ctl::cboWingwallPileBox, boxes);
        if (boxes == "2" || boxes == "3") setNumber(Ctl::txtPileBoxDistance1, 6, kDimension);
        if (boxes == "3") setNumber(Ctl::txtPileBoxDistance2, 6, kDimension);
    }

    void angle(Ctl a) {
        setNumber(CtlId(a, 0), 3, kWhole);
        setNumber(CtlId(a, 1), 2, kWhole);
        setNumber(CtlId(a, 2), 3, kSeconds);
    }

    void record900(int r) {
        next("900");
        for (int offset : endBentColumnOffsets(type_ == BentType::EndWithBackwall))
            app_.grid.setCell(r, beams_ + offset, restore(take(6), kElevation));
    }

    App& app_;
    std::vector<std::string> lines_;
    int lineNo_ = 0;
    const std::string* line_ = nullptr;
    int col_ = 0;
    int bents_ = 0;
    int beams_ = 0;
    std::string batteredCount_;
    std::optional<BentType> type_;
};

} // namespace

void parseInputFile(App& app, const std::string& bytes) { Reader(app, bytes).read(); }

bool readInputFile(App& app, const std::string& path) {
    try {
        std::ifstream in(path, std::ios::binary);
        if (!in) throw RuntimeError(err::kFileNotFound, "File not found: " + path);
        const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        parseInputFile(app, bytes);
        return true;
    } catch (const RuntimeError& e) {
        app.reportError(e);
        return false;
    }
}

} // namespace tw
