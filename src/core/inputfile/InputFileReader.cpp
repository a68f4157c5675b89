#include "core/App.h"
#include "core/inputfile/Codepage.h"
#include "core/inputfile/FileLayout.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

namespace tw {

namespace {

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

// Cuts every field of the file out of its columns, line by line in the
// order the file is written, and fills the form and the bent table.
class Reader : public FileWalk {
  public:
    Reader(App& app, const std::string& bytes) : app_(app), lines_(splitLines(bytes)) {}

    void read() {
        walkInputFile(app_, *this);
        app_.bentCounter = static_cast<std::int16_t>(bents_);
    }

  private:
    [[noreturn]] void fail(int number, const std::string& what) const {
        throw RuntimeError(number, what + " (line " + std::to_string(lineNo_) + ")");
    }

    // The next line, which must begin with `code` (title lines have none).
    void next(const std::string& code) {
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
    int count(const std::string& field) {
        const std::string t = trim(field);
        if (t.empty()) return 0;
        if (!isNumeric(t) || t.find_first_of(".eE") != std::string::npos)
            fail(err::kTypeMismatch, "Type mismatch: \"" + field + "\" is not a count");
        return std::stoi(t);
    }
    void setItem(Ctl ctl, const std::string& text) {
        try {
            app_.setComboText(ctl, text);
        } catch (const RuntimeError&) {
            fail(err::kInvalidProperty, "Invalid property value: \"" + text + "\" for " + std::string(ctlName(ctl)));
        }
    }
    void setCode(Ctl ctl, const std::string& code) {
        auto text = textOfCode(ctl, code);
        if (!text)
            fail(err::kInvalidProperty,
                 "Invalid property value: code \"" + code + "\" of " + std::string(ctlName(ctl)));
        app_.setComboText(ctl, *text);
    }

    void title(int item) override {
        next("");
        app_.setText(CtlId(Ctl::txtProjectInfo, item), cp1252ToUtf8(*line_));
    }
    void record(const std::string& code) override {
        next(code);
        firstRecord_ = code == "100 ";
    }
    void end() override {
        // Record "100" sets its choices once the line is read: the number of
        // beams and the bent type before the rest, since their handlers lay
        // out the sections and columns and give type defaults the file overrides.
        auto pending = std::move(pending_);
        auto rank = [](Ctl c) {
            return c == Ctl::cboDrScale ? 0 : c == Ctl::cboNoBeam ? 1 : c == Ctl::cboTybent ? 2 : 3;
        };
        std::stable_sort(pending.begin(), pending.end(),
                         [&](const auto& a, const auto& b) { return rank(a.first) < rank(b.first); });
        for (const auto& [ctl, text] : pending) {
            if (ctl == Ctl::cboNoBeam || ctl == Ctl::cboBatteredPile)
                setItem(ctl, text);
            else
                setCode(ctl, text);
        }
    }

    void number(const CtlId& id) override { app_.setText(id, restore(take(fileWidth(id)), fileDecimals(id))); }
    void code(Ctl ctl) override {
        std::string field = take(static_cast<int>(choices(ctl).front().code->size()));
        // The bent-drawn code is read from its second column alone.
        if (ctl == Ctl::cboBentDrawn) field[0] = ' ';
        if (firstRecord_)
            pending_.emplace_back(ctl, field);
        else
            setCode(ctl, field);
    }
    void count(Ctl ctl) override { pending_.emplace_back(ctl, trim(take(2))); }
    void blanks(int n) override { take(n); }

    void bentCount() override {
        bents_ = count(take(2));
        if (bents_ < 0) fail(err::kTypeMismatch, "Type mismatch: a negative number of bents");
    }
    void batteredCount() override {
        batteredCount_ = trim(take(2));
        if (!batteredCount_.empty()) pending_.emplace_back(Ctl::cboBatteredPile, batteredCount_);
    }
    int bents() override { return bents_; }
    void beginRow(int) override {
        row_.clear();
        inRow_ = true;
    }
    void bentNumber(int) override { row_.push_back(trim(take(2))); }
    void cell(int row, int column, const CtlId& source) override {
        std::string value = restore(take(fileWidth(source)), fileDecimals(source));
        if (inRow_)
            row_.push_back(std::move(value));
        else
            app_.grid.setCell(row, column, value);
    }
    void endRow(int) override {
        std::string tabbed;
        for (const auto& c : row_)
            tabbed += c + '\t';
        app_.grid.addItem(tabbed);
        app_.bentRegister.push_back(row_.front());
        inRow_ = false;
    }

    // The spacings follow the count the file names; a file whose piles are
    // not drawn names none, so the line itself tells how many there are.
    int batteredSpacings() override {
        if (!batteredCount_.empty()) return count(batteredCount_);
        int k = 0;
        while (k < 6 && more(6 * (k + 1)))
            ++k;
        if (k > 0) setItem(Ctl::cboBatteredPile, std::to_string(k));
        return k;
    }
    void pileBoxCount() override { setItem(Ctl::cboWingwallPileBox, trim(take(1))); }
    bool pileBoxCheck() override { return true; }

    App& app_;
    std::vector<std::string> lines_;
    int lineNo_ = 0;
    const std::string* line_ = nullptr;
    int col_ = 0;
    int bents_ = 0;
    std::string batteredCount_;
    std::vector<std::pair<Ctl, std::string>> pending_;
    bool firstRecord_ = false;
    std::vector<std::string> row_;
    bool inRow_ = false;
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
