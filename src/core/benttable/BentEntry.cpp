// SPDX-License-Identifier: Apache-2.0
#include "core/benttable/BentEntry.h"

#include "core/model/Numeric.h"
#include "core/model/Project.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace tw {

namespace {

// Stops the checks at the first that fails.
struct Refused {
    EntryRefusal refusal;
};

class RowBuilder {
  public:
    RowBuilder(const Project& project, bool repeatCheck) : project_(project), repeatCheck_(repeatCheck) {}

    std::variant<std::string, EntryRefusal> build() {
        try {
            const auto type = bentTypeOf(project_.text(Ctl::cboTybent));
            checkBentNumber();
            checkBottomOfCap();
            checkSteps();
            if (type && isEndBent(*type)) checkWingwalls();
            if (type == BentType::EndWithBackwall) checkBackwall();
        } catch (const Refused& r) {
            return r.refusal;
        }
        std::string row;
        for (const auto& c : cells_)
            row += c + '\t';
        return row;
    }

  private:
    [[noreturn]] static void refuse(const std::string& text, std::optional<CtlId> focus) {
        throw Refused{{text, focus}};
    }
    const std::string& required(const CtlId& id, const std::string& text) const {
        const std::string& t = project_.text(id);
        if (t.empty()) refuse(text, id);
        return t;
    }

    void checkBentNumber() {
        const std::string& number = required(Ctl::txtBentNoPI, "Please enter the bent number");
        cells_.push_back(number);
        if (!repeatCheck_ || project_.bentCounter < 1) return;
        const std::string trimmed = trim(number);
        const auto& reg = project_.bentRegister;
        if (std::any_of(reg.begin(), reg.end(), [&](const std::string& r) { return sameBentNumber(r, trimmed); }))
            refuse("You have entered the repeated Bent Number. Please check!", CtlId(Ctl::txtBentNoPI));
    }

    void checkBottomOfCap() {
        if (project_.value(Ctl::cboBtomCalPI).listIndex == 0) {
            cells_.insert(cells_.end(), {"", ""});
            return;
        }
        const std::string& left = project_.text(Ctl::txtBtLCapPI);
        const std::string& right = project_.text(Ctl::txtBtRCapPI);
        if (left.empty() || right.empty())
            refuse("You need to complete the Bottom Left Cap Elevation or Bottom Right Cap elevation!", std::nullopt);
        cells_.insert(cells_.end(), {left, right});
    }

    void checkSteps() {
        const int n = std::min(project_.beams(), 20);
        for (int i = 0; i < n; ++i)
            cells_.push_back(required(CtlId(Ctl::txtEStepPI, i), "Please complete all the step elevation!"));
    }

    // One wingwall side: its front-face and end values, or none when its
    // level choice is neither Yes nor No.
    std::vector<std::string> wingwall(Ctl choice, Ctl level, Ctl front, Ctl end, const char* side) {
        const std::string& t = project_.text(choice);
        const std::string prefix = std::string("You need to complete the top of the ") + side + " wingwall";
        if (t == "Yes") {
            const std::string& v = required(level, prefix + "!");
            return {v, v};
        }
        if (t == "No") {
            const std::string& f = required(front, prefix + " at the front face of the cap!");
            const std::string& e = required(end, prefix + " at the of the wingwall!");
            return {f, e};
        }
        return {};
    }

    void checkWingwalls() {
        const auto left = wingwall(Ctl::cboTPLwinwall, Ctl::txtLwingwallElevation, Ctl::txtElevationTopLeftfront,
                                   Ctl::txtElevationTopLeftEnd, "left");
        const auto right = wingwall(Ctl::cboTPRwingwall, Ctl::txtRwingwallElevation, Ctl::txtElevationTopRighFront,
                                    Ctl::txtElevationTopRighEnd, "right");
        // Front faces first, then the ends held back until both sides passed.
        if (!left.empty()) cells_.push_back(left[0]);
        if (!right.empty()) cells_.push_back(right[0]);
        if (!left.empty()) cells_.push_back(left[1]);
        if (!right.empty()) cells_.push_back(right[1]);
    }

    void checkBackwall() {
        // The right backwall has no message of its own: it shares the centerline one.
        const std::pair<Ctl, const char*> fields[] = {
            {Ctl::txtTopLeftEndPost, "Please complete the top of the left end post!"},
            {Ctl::txtTopRightEndPost, "Please complete the top of the right end post!"},
            {Ctl::txtTopLeftBackwall, "Please complete the backwall at the inside face of the left end!"},
            {Ctl::txtTopCentBackwall, "Please complete the backwall at the centerline face of the bent!"},
            {Ctl::txtTopRightBackwall, "Please complete the backwall at the centerline face of the bent!"},
        };
        for (const auto& [ctl, text] : fields)
            cells_.push_back(required(ctl, text));
    }

    const Project& project_;
    bool repeatCheck_;
    std::vector<std::string> cells_;
};

} // namespace

bool sameBentNumber(const std::string& a, const std::string& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
               return std::tolower(x) == std::tolower(y);
           });
}

std::variant<std::string, EntryRefusal> checkEntry(const Project& project, bool repeatCheck) {
    return RowBuilder(project, repeatCheck).build();
}

std::vector<CtlId> enteredFields(std::optional<BentType> type) {
    std::vector<CtlId> fields = {Ctl::txtBentNoPI};
    for (int i = 0; i < 20; ++i)
        fields.emplace_back(Ctl::txtEStepPI, i);
    fields.insert(fields.end(), {Ctl::txtBtLCapPI, Ctl::txtBtRCapPI});
    if (type && isEndBent(*type))
        for (Ctl c : {Ctl::txtLwingwallElevation, Ctl::txtElevationTopLeftfront, Ctl::txtElevationTopLeftEnd,
                      Ctl::txtRwingwallElevation, Ctl::txtElevationTopRighFront, Ctl::txtElevationTopRighEnd})
            fields.emplace_back(c);
    if (type == BentType::EndWithBackwall)
        for (Ctl c : {Ctl::txtTopLeftEndPost, Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall,
                      Ctl::txtTopRightBackwall})
            fields.emplace_back(c);
    return fields;
}

} // namespace tw
