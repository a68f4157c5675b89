// SPDX-License-Identifier: Apache-2.0
#include "core/form/NumericEntry.h"

#include "core/form/Session.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <vector>

namespace tw {

namespace {

constexpr int kBackspace = 8;
constexpr int kPoint = '.';
constexpr int kMinus = '-';

float valueOf(const Session& s, const CtlId& id) { return static_cast<float>(s.project().leading(id)); }

// Writes the closing value into its field: yellow while something is left,
// red when nothing or less than nothing is, and never editable.
void setClosing(Session& s, const CtlId& closing, const std::vector<CtlId>& entered) {
    if (s.text(Ctl::txtCapLength).empty()) return;
    float sum = 0.0f;
    for (const auto& id : entered)
        sum += valueOf(s, id);
    const float rest = valueOf(s, Ctl::txtCapLength) - sum;
    s.setText(closing, formatField(4, 4, singleToText(rest)));
    s.setColor(closing, rest <= 0.0f ? BackColor::Red : BackColor::Yellow);
    s.setLocked(closing, true);
}

std::vector<CtlId> items(Ctl c, int from, int to) {
    std::vector<CtlId> v;
    for (int i = from; i <= to; ++i)
        v.emplace_back(c, i);
    return v;
}

void leaveCapLength(Session& s) {
    const std::string text = s.text(Ctl::txtCapLength);
    const InputRule& r = inputRule(Ctl::txtCapLength);
    if (leadingNumber(text) <= 99.0) {
        s.setText(Ctl::txtCapLength, formatField(r.digits, r.decimals, text));
        return;
    }
    s.message("The cap length can't be over 99 ft!", "Overlimit Cap Length", MsgButtons::OK, MsgIcon::Critical);
    s.setText(Ctl::txtCapLength, formatField(r.digits, r.decimals, text));
    s.selectAll(Ctl::txtCapLength);
    s.setFocus(Ctl::txtCapLength);
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

bool isNumberField(const CtlId& id) {
    if (!isInput(id.ctl)) return false;
    const InputKind k = inputRule(id).kind;
    return k == InputKind::Number || k == InputKind::BentNumber;
}

void enterNumber(Session& s, const CtlId& id) {
    if (inputRule(id).selectsOnFocus) s.selectAll(id);
}

int numberKey(const Session& s, const CtlId& id, int key) {
    const InputRule& r = inputRule(id);
    if (r.kind == InputKind::BentNumber) return filterBentNumberKey(key);
    const Control& c = s.ctl(id);
    const std::string text = s.text(id);
    const int start = std::min<int>(c.selStart, static_cast<int>(text.size()));
    return filterNumericKey(key, text, text.substr(static_cast<size_t>(start), static_cast<size_t>(c.selLength)), start,
                            r.minus, r.point);
}

void leaveNumber(Session& s, const CtlId& id) {
    const InputRule& r = inputRule(id);
    if (r.kind != InputKind::Number) return;
    if (id.ctl == Ctl::txtCapLength) {
        leaveCapLength(s);
        return;
    }
    s.setText(id, formatField(r.digits, r.decimals, s.text(id)));
    // Leaving a family's field brings its closing value up to date.
    if (id.ctl == Ctl::txtBatterPile) updateBatteredPileClosing(s);
    if (id.ctl == Ctl::txtCenterline) updateCenterlineClosing(s);
    if (id.ctl == Ctl::txtCapStep) updateCapStepClosing(s);
}

void updateBatteredPileClosing(Session& s) {
    const int n = static_cast<int>(s.project().leading(Ctl::cboBatteredPile));
    setClosing(s, CtlId(Ctl::txtBatterPile, 6), items(Ctl::txtBatterPile, 0, n - 1));
}

void updateCenterlineClosing(Session& s) {
    setClosing(s, CtlId(Ctl::txtCenterline, 20), items(Ctl::txtCenterline, 0, s.project().beams() - 1));
}

void updateCapStepClosing(Session& s) {
    const int n = s.project().beams();
    if (n < 1) return;
    setClosing(s, CtlId(Ctl::txtCapStep, n - 1), items(Ctl::txtCapStep, 0, n - 2));
}

void updateAllClosing(Session& s) {
    updateCapStepClosing(s);
    updateCenterlineClosing(s);
    updateBatteredPileClosing(s);
}

} // namespace tw
