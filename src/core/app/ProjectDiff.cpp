// SPDX-License-Identifier: Apache-2.0
#include "core/app/ProjectDiff.h"

#include "core/Quoting.h"
#include "core/model/Closing.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Project.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <set>

namespace tw {

namespace {

// "Cap Length" reads "Cap length" in a sentence; a heading of the bent table keeps its own words.
std::string sentenceCase(std::string s) {
    for (std::size_t i = 1; i < s.size(); ++i)
        if (std::isupper(static_cast<unsigned char>(s[i])) && s[i - 1] == ' ' && i + 1 < s.size() &&
            std::islower(static_cast<unsigned char>(s[i + 1])))
            s[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(s[i])));
    return s;
}

constexpr const char* kBlank = "(blank)";

// A value as a drawing shows it: a length in the chosen units, an elevation
// as EL., a choice as its item; free text and what is no number quoted.
std::string valueOf(const CtlId& id, const std::string& text, LengthUnits units) {
    const std::string t = trim(text);
    if (t.empty()) return kBlank;
    const InputRule& rule = inputRule(id);
    switch (rule.kind) {
    case InputKind::Choice:
    case InputKind::BentNumber: return t;
    case InputKind::Text: return quote(text);
    case InputKind::Number: break;
    }
    if (!isNumeric(t)) return quote(text);
    if (rule.decimals == 4) return lengthText(t, units);
    if (rule.decimals == 2) return elevationText(t);
    return t;
}

std::string cellOf(const std::string& text) {
    const std::string t = trim(text);
    if (t.empty()) return kBlank;
    return isNumeric(t) ? elevationText(t) : quote(text);
}

// The three fields of an angle an input belongs to: degrees, minutes, seconds.
std::optional<std::array<CtlId, 3>> angleOf(const CtlId& id) {
    switch (id.ctl) {
    case Ctl::txtBeamangleH:
    case Ctl::txtBeamangleM:
    case Ctl::txtBeamangleS:
        return std::array{CtlId(Ctl::txtBeamangleH, id.index), CtlId(Ctl::txtBeamangleM, id.index),
                          CtlId(Ctl::txtBeamangleS, id.index)};
    case Ctl::txtWinLAngle:
    case Ctl::txtWinRAngle: return std::array{CtlId(id.ctl, 0), CtlId(id.ctl, 1), CtlId(id.ctl, 2)};
    default: return std::nullopt;
    }
}

std::string angleValue(const Project& p, const std::array<CtlId, 3>& parts) {
    const std::string a = angleText(p.text(parts[0]), p.text(parts[1]), p.text(parts[2]));
    return a.empty() ? kBlank : a;
}

class Lines {
  public:
    Lines(const Project& a, const Project& b, const DiffOptions& o) : a_(a), b_(b), o_(o) {
        for (const auto& f : closingFamilies(b))
            closings_.insert(f.closing);
    }

    void inputs() {
        std::set<CtlId> done;
        for (const auto& id : projectInputs()) {
            if (done.count(id)) continue;
            if (const auto parts = angleOf(id)) {
                done.insert(parts->begin(), parts->end());
                if (same(*parts)) continue;
                std::string before = angleValue(a_, *parts), after = angleValue(b_, *parts);
                if (before == after) before = typed(a_, *parts), after = typed(b_, *parts);
                change(inputLabel(id), names(*parts), before, after);
                continue;
            }
            if (a_.text(id) == b_.text(id)) continue;
            std::string before = valueOf(id, a_.text(id), o_.units), after = valueOf(id, b_.text(id), o_.units);
            // Texts that read alike (a blank and a blank space, 4.25 and 4.2500) are told apart as typed.
            if (before == after) before = quote(a_.text(id)), after = quote(b_.text(id));
            change(labelOf(id), toString(id), before, after);
        }
    }

    void bents() {
        const BentTable& ta = a_.table();
        const BentTable& tb = b_.table();
        std::vector<std::optional<int>> partner(static_cast<size_t>(tb.rows())); // row of a for each row of b
        std::vector<bool> takenA(static_cast<size_t>(ta.rows())), matchedA(static_cast<size_t>(ta.rows()));
        for (int r = 1; r < tb.rows(); ++r)
            if (auto ra = rowNumbered(ta, trim(tb.cell(r, 0)), takenA)) {
                partner[static_cast<size_t>(r)] = ra;
                matchedA[static_cast<size_t>(*ra)] = true;
            }
        for (int r = 1; r < tb.rows(); ++r)
            if (!partner[static_cast<size_t>(r)]) whole(tb, r, "added");
        for (int r = 1; r < ta.rows(); ++r)
            if (!matchedA[static_cast<size_t>(r)]) whole(ta, r, "removed");
        for (int r = 1; r < tb.rows(); ++r) {
            const auto ra = partner[static_cast<size_t>(r)];
            if (!ra) continue;
            const int cols = std::max(ta.cols(), tb.cols());
            for (int c = 1; c < cols; ++c) {
                const std::string before = c < ta.cols() ? ta.cell(*ra, c) : std::string();
                const std::string after = c < tb.cols() ? tb.cell(r, c) : std::string();
                if (before == after) continue;
                std::string x = cellOf(before), y = cellOf(after);
                if (x == y) x = quote(before), y = quote(after);
                lines_.push_back(bentName(tb, r) + ", " + heading(c, tb, ta) + ": " + x + " -> " + y);
            }
        }
    }

    std::vector<std::string> take() { return std::move(lines_); }

  private:
    // A closing value by what it closes ("Centerline distance, last beam to right end"), not its place.
    std::string labelOf(const CtlId& id) const { return closings_.count(id) ? closingLabel(id) : inputLabel(id); }

    bool same(const std::array<CtlId, 3>& parts) const {
        return std::all_of(parts.begin(), parts.end(), [&](const CtlId& id) { return a_.text(id) == b_.text(id); });
    }

    static std::string typed(const Project& p, const std::array<CtlId, 3>& parts) {
        return quote(p.text(parts[0])) + " " + quote(p.text(parts[1])) + " " + quote(p.text(parts[2]));
    }

    static std::string names(const std::array<CtlId, 3>& parts) {
        return toString(parts[0]) + " " + toString(parts[1]) + " " + toString(parts[2]);
    }

    void change(const std::string& label, const std::string& names, const std::string& before,
                const std::string& after) {
        lines_.push_back(sentenceCase(label) + (o_.names ? " (" + names + ")" : "") + ": " + before + " -> " + after);
    }

    // The rows of `t` by bent number, the first row of a repeated number taken first.
    static std::optional<int> rowNumbered(const BentTable& t, const std::string& number, std::vector<bool>& taken) {
        for (int r = 1; r < t.rows(); ++r)
            if (!taken[static_cast<size_t>(r)] && trim(t.cell(r, 0)) == number) {
                taken[static_cast<size_t>(r)] = true;
                return r;
            }
        return std::nullopt;
    }

    static std::string bentName(const BentTable& t, int r) {
        const std::string n = trim(t.cell(r, 0));
        return "Bent " + (n.empty() ? std::string(kBlank) : n);
    }

    // A column by its heading in `first`, else in `second`; by its place where neither has one.
    static std::string heading(int c, const BentTable& first, const BentTable& second) {
        for (const BentTable* t : {&first, &second})
            if (c < t->cols() && !trim(t->cell(0, c)).empty()) return t->cell(0, c);
        return "column " + std::to_string(c + 1);
    }

    // A bent added or removed, every cell of it by its heading.
    void whole(const BentTable& t, int r, const char* what) {
        std::string line = bentName(t, r) + " " + what + ":";
        const auto cells = t.rowCells(r);
        for (std::size_t c = 1; c < cells.size(); ++c)
            line += (c > 1 ? ", " : " ") + heading(static_cast<int>(c), t, t) + " " + cellOf(cells[c]);
        lines_.push_back(line);
    }

    const Project& a_;
    const Project& b_;
    const DiffOptions& o_;
    std::set<CtlId> closings_;
    std::vector<std::string> lines_;
};

} // namespace

std::vector<std::string> projectDifferences(const Project& a, const Project& b, const DiffOptions& options) {
    Lines lines(a, b, options);
    lines.inputs();
    lines.bents();
    return lines.take();
}

} // namespace tw
