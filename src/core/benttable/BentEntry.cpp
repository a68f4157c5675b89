#include "core/benttable/BentEntry.h"

#include "core/App.h"
#include "core/benttable/Layout.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace tw {

namespace {

struct Refusal {};

class RowBuilder {
  public:
    RowBuilder(App& app, bool repeatCheck) : app_(app), repeatCheck_(repeatCheck) {}

    std::optional<std::string> build() {
        try {
            const auto type = bentTypeOf(app_.text(Ctl::cboTybent));
            checkBentNumber();
            checkBottomOfCap();
            checkSteps();
            if (type && isEndBent(*type)) checkWingwalls();
            if (type == BentType::EndWithBackwall) checkBackwall();
        } catch (const Refusal&) {
            if (appended_) app_.bentRegister.pop_back();
            return std::nullopt;
        }
        std::string row;
        for (const auto& c : cells_)
            row += c + '\t';
        return row;
    }

  private:
    [[noreturn]] void refuse(const std::string& text, std::optional<CtlId> focus) {
        app_.message(text, kAppTitle, MsgButtons::OK, MsgIcon::Critical);
        if (focus) app_.setFocus(*focus);
        throw Refusal{};
    }
    const std::string& required(const CtlId& id, const std::string& text) {
        const std::string& t = app_.ctl(id).text;
        if (t.empty()) refuse(text, id);
        return t;
    }

    void checkBentNumber() {
        const std::string& number = required(Ctl::txtBentNoPI, "Please enter the bent number");
        cells_.push_back(number);
        if (!repeatCheck_) return;
        auto& reg = app_.bentRegister;
        reg.push_back(trim(number));
        appended_ = true;
        if (app_.bentCounter < 1) return;
        const bool repeated = std::any_of(reg.begin(), reg.end() - 1,
                                          [&](const std::string& r) { return sameBentNumber(r, reg.back()); });
        if (repeated) refuse("You have entered the repeated Bent Number. Please check!", CtlId(Ctl::txtBentNoPI));
    }

    void checkBottomOfCap() {
        if (app_.listIndex(Ctl::cboBtomCalPI) == 0) {
            cells_.insert(cells_.end(), {"", ""});
            return;
        }
        const std::string& left = app_.ctl(Ctl::txtBtLCapPI).text;
        const std::string& right = app_.ctl(Ctl::txtBtRCapPI).text;
        if (left.empty() || right.empty())
            refuse("You need to complete the Bottom Left Cap Elevation or Bottom Right Cap elevation!", std::nullopt);
        cells_.insert(cells_.end(), {left, right});
    }

    void checkSteps() {
        const int n = std::min(beamCount(app_), 20);
        for (int i = 0; i < n; ++i)
            cells_.push_back(required(CtlId(Ctl::txtEStepPI, i), "Please complete all the step elevation!"));
    }

    // One wingwall side: its front-face and end values, or none when its
    // level choice is neither Yes nor No.
    std::vector<std::string> wingwall(Ctl choice, Ctl level, Ctl front, Ctl end, const char* side) {
        const std::string t = app_.text(choice);
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

    App& app_;
    bool repeatCheck_;
    bool appended_ = false;
    std::vector<std::string> cells_;
};

} // namespace

bool sameBentNumber(const std::string& a, const std::string& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
               return std::tolower(x) == std::tolower(y);
           });
}

std::optional<std::string> checkAndBuildRow(App& app, bool repeatCheck) { return RowBuilder(app, repeatCheck).build(); }

void clearEntryFields(App& app, bool resetBottomOfCap) {
    const auto type = bentTypeOf(app.text(Ctl::cboTybent));
    app.setText(Ctl::txtBentNoPI, "");
    for (int i = 0; i < 20; ++i)
        app.setText(CtlId(Ctl::txtEStepPI, i), "");
    app.setText(Ctl::txtBtLCapPI, "");
    app.setText(Ctl::txtBtRCapPI, "");
    if (resetBottomOfCap) app.setListIndex(Ctl::cboBtomCalPI, 0);
    if (type && isEndBent(*type))
        for (Ctl c : {Ctl::txtLwingwallElevation, Ctl::txtElevationTopLeftfront, Ctl::txtElevationTopLeftEnd,
                      Ctl::txtRwingwallElevation, Ctl::txtElevationTopRighFront, Ctl::txtElevationTopRighEnd})
            app.setText(c, "");
    if (type == BentType::EndWithBackwall)
        for (Ctl c : {Ctl::txtTopLeftEndPost, Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall,
                      Ctl::txtTopRightBackwall})
            app.setText(c, "");
}

} // namespace tw
