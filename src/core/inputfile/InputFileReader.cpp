// SPDX-License-Identifier: Apache-2.0
#include "core/Errors.h"
#include "core/inputfile/Codepage.h"
#include "core/inputfile/FileLayout.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Project.h"

#include <algorithm>
#include <cctype>
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
// order the file is written, and hands them to the sink.
class Reader : public FileWalk {
  public:
    Reader(ReadSink& sink, const std::string& bytes, std::vector<std::string>* notes)
        : sink_(sink), lines_(splitLines(bytes)), notes_(notes) {}

    void read() {
        try {
            walkInputFile(sink_.project(), *this);
        } catch (const RuntimeError&) {
            if (lineNo_ == kLine100 && wideBentCount())
                throw RuntimeError(err::kOverflow, "The file holds more than 99 bents");
            throw;
        }
        sink_.setBentCounter(static_cast<std::int16_t>(bents_));
    }

  private:
    static constexpr int kLine100 = 4;

    // A bent count of three digits or more, as the writer leaves it: it
    // pushes the rest of record "100" one column to the right, so the line
    // is longer than the 39 columns of its fields and cannot be read.
    bool wideBentCount() const {
        if (static_cast<int>(lines_.size()) < kLine100) return false;
        const std::string& l = lines_[kLine100 - 1];
        auto digit = [&](size_t i) { return std::isdigit(static_cast<unsigned char>(l[i])) != 0; };
        return l.size() >= 40 && digit(5) && digit(6) && digit(7);
    }

    // A number field whose text is no number: kept on the form, but a save writes blanks there.
    template <class Where> void noteNotANumber(const Where& where, const std::string& text) {
        if (!notes_ || text.empty() || isNumeric(text)) return;
        notes_->push_back("line " + std::to_string(lineNo_) + ": " + where() + " holds \"" + printableBytes(text) +
                          "\", which is not a number: it will be saved as blanks");
    }

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
            fail(err::kInvalidProperty, "Invalid file format: record " + code + " expected, found \"" +
                                            printableBytes(line_->substr(0, 12)) + "\"");
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
            fail(err::kTypeMismatch, "Type mismatch: \"" + printableBytes(field) + "\" is not a count");
        return std::stoi(t);
    }
    void setItem(Ctl ctl, const std::string& text) {
        if (!sink_.setChoice(ctl, text))
            fail(err::kInvalidProperty,
                 "Invalid property value: \"" + printableBytes(text) + "\" for " + std::string(ctlName(ctl)));
    }
    void setCode(Ctl ctl, const std::string& code) {
        auto text = textOfCode(ctl, code);
        if (!text)
            fail(err::kInvalidProperty,
                 "Invalid property value: code \"" + printableBytes(code) + "\" of " + std::string(ctlName(ctl)));
        setItem(ctl, *text);
    }

    void title(int item) override {
        next("");
        sink_.setText(CtlId(Ctl::txtProjectInfo, item), cp1252ToUtf8(*line_));
    }
    void record(const std::string& code) override {
        next(code);
        firstRecord_ = code == "100 ";
        lastCode_ = code;
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

    void number(const CtlId& id) override {
        const std::string text = restore(take(fileWidth(id)), fileDecimals(id));
        noteNotANumber([&] { return toString(id); }, text);
        sink_.setText(id, text);
    }
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
    // Delete leaves the count in record "100" as it was, so a save after a
    // Delete lists more bents than it writes. Where the rows end early and
    // record "500" follows at once, the file is read with the bents it holds;
    // a file that simply ends stays an error.
    int bents() override {
        const bool inRows = lastCode_ == "300" || lastCode_ == "301" || lastCode_ == "400" || lastCode_ == "401";
        if (inRows && held_ < bents_ && lineNo_ < static_cast<int>(lines_.size()) &&
            lines_[lineNo_].compare(0, 3, "500") == 0) {
            if (notes_) notes_->push_back("line " + std::to_string(lineNo_ + 1) + ": " + fewerBentsText(bents_, held_));
            sink_.fewerBents(bents_, held_);
            bents_ = held_;
        }
        return bents_;
    }
    void beginRow(int) override {
        row_.clear();
        inRow_ = true;
    }
    void bentNumber(int) override { row_.push_back(trim(take(2))); }
    void cell(int row, int column, const CtlId& source) override {
        std::string value = restore(take(fileWidth(source)), fileDecimals(source));
        noteNotANumber(
            [&] {
                return "bent " + std::to_string(row) + " of the bent table (column \"" +
                       sink_.project().table().cell(0, column) + "\")";
            },
            value);
        if (inRow_)
            row_.push_back(std::move(value));
        else
            sink_.setCell(row, column, value);
    }
    void endRow(int) override {
        std::string tabbed;
        for (const auto& c : row_)
            tabbed += c + '\t';
        sink_.addBent(tabbed, row_.front());
        inRow_ = false;
        ++held_;
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

    ReadSink& sink_;
    std::vector<std::string> lines_;
    std::vector<std::string>* notes_;
    int lineNo_ = 0;
    const std::string* line_ = nullptr;
    int col_ = 0;
    int bents_ = 0;
    int held_ = 0; // bent rows read so far
    std::string lastCode_;
    std::string batteredCount_;
    std::vector<std::pair<Ctl, std::string>> pending_;
    bool firstRecord_ = false;
    std::vector<std::string> row_;
    bool inRow_ = false;
};

} // namespace

std::string fewerBentsText(int listed, int held) {
    return "the file lists " + std::to_string(listed) + " bents but holds " + std::to_string(held) +
           " (as a save after Delete writes it): read with the " + std::to_string(held) +
           " it holds; the next save lists " + std::to_string(held);
}

void parseInputFile(const std::string& bytes, ReadSink& sink, std::vector<std::string>* notes) {
    // Saved by an editor as "Unicode": every other byte is a zero, and no line reads.
    if (bytes.rfind("\xFF\xFE", 0) == 0 || bytes.rfind("\xFE\xFF", 0) == 0)
        throw RuntimeError(err::kInvalidProperty, "Invalid file format: the file is UTF-16 text; an input file is "
                                                  "single-byte text (Windows-1252)");
    Reader(sink, bytes, notes).read();
}

} // namespace tw
