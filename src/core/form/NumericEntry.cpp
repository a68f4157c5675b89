#include "core/form/NumericEntry.h"

#include "core/App.h"
#include "core/benttable/Layout.h"
#include "core/model/Numeric.h"

#include <vector>

namespace tw {

namespace {

constexpr int kBackspace = 8;
constexpr int kPoint = '.';
constexpr int kMinus = '-';

struct FieldRule {
    Ctl ctl;
    bool minus;
    bool point;
    int digits; // of the format applied on leaving
    int decimals;
    bool focusSelects;
};

// Dimensions carry four decimals, elevations two, angles whole degrees and
// minutes and seconds with one decimal.
const std::vector<FieldRule>& fieldRules() {
    static const std::vector<FieldRule> rules = {
        {Ctl::txtCapDepth, true, true, 2, 4, true},
        {Ctl::txtCapWidth, true, true, 2, 4, true},
        {Ctl::txtCenterlineDistance, true, true, 2, 4, true},
        {Ctl::txtLengthEndPost, true, true, 2, 4, true},
        {Ctl::txtLongWidth, true, true, 2, 4, true},
        {Ctl::txtPileBoxDistance1, true, true, 2, 4, true},
        {Ctl::txtPileBoxDistance2, true, true, 2, 4, true},
        {Ctl::txtTransWidth, true, true, 2, 4, true},
        {Ctl::txtWidthEndPost, true, true, 2, 4, true},
        {Ctl::txtWingwallLength, true, true, 2, 4, true},
        {Ctl::txtBatterPile, true, true, 2, 4, true},
        {Ctl::txtCapStep, true, true, 2, 4, true},
        {Ctl::txtCenterline, true, true, 2, 4, true},
        {Ctl::txtBtLCapPI, true, true, 4, 2, true},
        {Ctl::txtBtRCapPI, true, true, 4, 2, true},
        {Ctl::txtElevationTopLeftEnd, true, true, 4, 2, true},
        {Ctl::txtElevationTopLeftfront, true, true, 4, 2, true},
        {Ctl::txtElevationTopRighEnd, true, true, 4, 2, true},
        {Ctl::txtElevationTopRighFront, true, true, 4, 2, true},
        {Ctl::txtLwingwallElevation, true, true, 4, 2, true},
        {Ctl::txtRwingwallElevation, true, true, 4, 2, true},
        {Ctl::txtTopCentBackwall, true, true, 4, 2, true},
        {Ctl::txtTopLeftBackwall, true, true, 4, 2, true},
        {Ctl::txtTopLeftEndPost, true, true, 4, 2, true},
        {Ctl::txtTopRightBackwall, true, true, 4, 2, true},
        {Ctl::txtTopRightEndPost, true, true, 4, 2, true},
        {Ctl::txtEStepPI, true, true, 4, 2, true},
        {Ctl::txtCapLength, true, true, 3, 4, false},
        {Ctl::txtBeamangleH, true, false, 3, 0, true},
        {Ctl::txtBeamangleM, true, false, 2, 0, true},
        {Ctl::txtBeamangleS, true, true, 2, 1, true},
    };
    return rules;
}

// The wingwall angles are arrays whose items differ: degrees, minutes, seconds.
struct AngleFormat {
    bool point;
    int digits;
    int decimals;
};
constexpr AngleFormat kAngle[] = {{false, 3, 0}, {false, 2, 0}, {true, 2, 1}};

float valueOf(const App& app, const CtlId& id) { return static_cast<float>(leadingNumber(app.text(id))); }

// Writes the closing value into its field: yellow while something is left,
// red when nothing or less than nothing is, and never editable.
void setClosing(App& app, const CtlId& closing, const std::vector<CtlId>& entered) {
    if (app.text(Ctl::txtCapLength).empty()) return;
    float sum = 0.0f;
    for (const auto& id : entered)
        sum += valueOf(app, id);
    const float rest = valueOf(app, Ctl::txtCapLength) - sum;
    app.setText(closing, formatField(4, 4, singleToText(rest)));
    Control& c = app.ctl(closing);
    c.color = rest <= 0.0f ? BackColor::Red : BackColor::Yellow;
    c.locked = true;
}

std::vector<CtlId> items(Ctl c, int from, int to) {
    std::vector<CtlId> v;
    for (int i = from; i <= to; ++i)
        v.emplace_back(c, i);
    return v;
}

// Runs the field's key filter against its text, selection and caret.
int filterKeyOf(const App& app, const CtlId& id, int key, bool minus, bool point) {
    const Control& c = app.ctl(id);
    const int start = std::min<int>(c.selStart, static_cast<int>(c.text.size()));
    return filterNumericKey(key, c.text, c.text.substr(start, c.selLength), start, minus, point);
}

void leaveCapLength(App& app) {
    const double value = leadingNumber(app.text(Ctl::txtCapLength));
    if (value <= 99.0) {
        app.setText(Ctl::txtCapLength, formatField(3, 4, app.text(Ctl::txtCapLength)));
        return;
    }
    app.message("The cap length can't be over 99 ft!", "Overlimit Cap Length", MsgButtons::OK, MsgIcon::Critical);
    app.setText(Ctl::txtCapLength, formatField(3, 4, app.text(Ctl::txtCapLength)));
    app.selectAll(Ctl::txtCapLength);
    app.setFocus(Ctl::txtCapLength);
}

void installField(App& app, Ctl ctl, bool minus, bool point, int digits, int decimals, bool focusSelects) {
    if (focusSelects)
        app.on(kFrmMain, ctl, Event::GotFocus, [ctl](App& a, EventArgs& e) { a.selectAll(CtlId(ctl, e.index)); });
    app.on(kFrmMain, ctl, Event::KeyPress, [ctl, minus, point](App& a, EventArgs& e) {
        e.key = filterKeyOf(a, CtlId(ctl, e.index), e.key, minus, point);
    });
    if (ctl == Ctl::txtCapLength) {
        app.on(kFrmMain, ctl, Event::LostFocus, [](App& a, EventArgs&) { leaveCapLength(a); });
        return;
    }
    app.on(kFrmMain, ctl, Event::LostFocus, [ctl, digits, decimals](App& a, EventArgs& e) {
        const CtlId id(ctl, e.index);
        a.setText(id, formatField(digits, decimals, a.text(id)));
        if (ctl == Ctl::txtBatterPile) updateBatteredPileClosing(a);
        if (ctl == Ctl::txtCenterline) updateCenterlineClosing(a);
        if (ctl == Ctl::txtCapStep) updateCapStepClosing(a);
    });
}

} // namespace

int filterNumericKey(int key, const std::string& text, const std::string& selected, int caret, bool minusAllowed,
                     bool pointAllowed) {
    if (key >= '0' && key <= '9') return key;
    if (key == kBackspace) return key;
    if (key == kPoint) {
        if (!pointAllowed) return 0;
        return text.find('.') == std::string::npos || selected.find('.') != std::string::npos ? key : 0;
    }
    if (key == kMinus) {
        if (!minusAllowed) return 0;
        if (text.find('-') != std::string::npos) return selected.find('-') != std::string::npos ? key : 0;
        return caret == 0 ? key : 0;
    }
    return 0;
}

int filterBentNumberKey(int key) { return key >= '1' && key <= '9' ? key : 0; }

void updateBatteredPileClosing(App& app) {
    const int n = static_cast<int>(leadingNumber(app.text(Ctl::cboBatteredPile)));
    setClosing(app, CtlId(Ctl::txtBatterPile, 6), items(Ctl::txtBatterPile, 0, n - 1));
}

void updateCenterlineClosing(App& app) {
    setClosing(app, CtlId(Ctl::txtCenterline, 20), items(Ctl::txtCenterline, 0, beamCount(app) - 1));
}

void updateCapStepClosing(App& app) {
    const int n = beamCount(app);
    if (n < 1) return;
    setClosing(app, CtlId(Ctl::txtCapStep, n - 1), items(Ctl::txtCapStep, 0, n - 2));
}

void updateAllClosing(App& app) {
    updateCapStepClosing(app);
    updateCenterlineClosing(app);
    updateBatteredPileClosing(app);
}

void installNumericEntry(App& app) {
    for (const auto& r : fieldRules())
        installField(app, r.ctl, r.minus, r.point, r.digits, r.decimals, r.focusSelects);
    for (Ctl angle : {Ctl::txtWinLAngle, Ctl::txtWinRAngle}) {
        app.on(kFrmMain, angle, Event::KeyPress, [angle](App& a, EventArgs& e) {
            e.key = filterKeyOf(a, CtlId(angle, e.index), e.key, true, kAngle[e.index].point);
        });
        app.on(kFrmMain, angle, Event::LostFocus, [angle](App& a, EventArgs& e) {
            const CtlId id(angle, e.index);
            a.setText(id, formatField(kAngle[e.index].digits, kAngle[e.index].decimals, a.text(id)));
        });
    }
    app.on(kFrmMain, Ctl::txtBentNoPI, Event::KeyPress, [](App&, EventArgs& e) { e.key = filterBentNumberKey(e.key); });
}

} // namespace tw
