#include "core/form/NumericEntry.h"

#include "core/App.h"
#include "core/form/Forms.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <vector>

namespace tw {

namespace {

constexpr int kBackspace = 8;
constexpr int kPoint = '.';
constexpr int kMinus = '-';

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
    const InputRule& r = inputRule(Ctl::txtCapLength);
    if (value <= 99.0) {
        app.setText(Ctl::txtCapLength, formatField(r.digits, r.decimals, app.text(Ctl::txtCapLength)));
        return;
    }
    app.message("The cap length can't be over 99 ft!", "Overlimit Cap Length", MsgButtons::OK, MsgIcon::Critical);
    app.setText(Ctl::txtCapLength, formatField(r.digits, r.decimals, app.text(Ctl::txtCapLength)));
    app.selectAll(Ctl::txtCapLength);
    app.setFocus(Ctl::txtCapLength);
}

// Leaving a family's field brings its closing value up to date.
void updateClosingOf(App& app, Ctl ctl) {
    if (ctl == Ctl::txtBatterPile) updateBatteredPileClosing(app);
    if (ctl == Ctl::txtCenterline) updateCenterlineClosing(app);
    if (ctl == Ctl::txtCapStep) updateCapStepClosing(app);
}

// The handlers of one input, as its rule in the table says.
void installInput(App& app, Ctl ctl) {
    const CtlId first = ctlArraySize(ctl) > 0 ? CtlId(ctl, 0) : CtlId(ctl);
    const InputKind kind = inputRule(first).kind;
    if (kind != InputKind::Number && kind != InputKind::BentNumber) return;
    app.on(kFrmMain, ctl, Event::GotFocus, [ctl](App& a, EventArgs& e) {
        const CtlId id(ctl, e.index);
        if (inputRule(id).selectsOnFocus) a.selectAll(id);
    });
    if (kind == InputKind::BentNumber) {
        app.on(kFrmMain, ctl, Event::KeyPress, [](App&, EventArgs& e) { e.key = filterBentNumberKey(e.key); });
        return;
    }
    app.on(kFrmMain, ctl, Event::KeyPress, [ctl](App& a, EventArgs& e) {
        const CtlId id(ctl, e.index);
        const InputRule& r = inputRule(id);
        e.key = filterKeyOf(a, id, e.key, r.minus, r.point);
    });
    if (ctl == Ctl::txtCapLength) {
        app.on(kFrmMain, ctl, Event::LostFocus, [](App& a, EventArgs&) { leaveCapLength(a); });
        return;
    }
    app.on(kFrmMain, ctl, Event::LostFocus, [ctl](App& a, EventArgs& e) {
        const CtlId id(ctl, e.index);
        const InputRule& r = inputRule(id);
        a.setText(id, formatField(r.digits, r.decimals, a.text(id)));
        updateClosingOf(a, ctl);
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
    for (Ctl ctl : inputControls())
        installInput(app, ctl);
}

} // namespace tw
