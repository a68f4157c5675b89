// SPDX-License-Identifier: Apache-2.0
#include "core/form/NumericEntry.h"

#include "core/form/Session.h"
#include "core/model/Closing.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Utf8.h"

#include <vector>

namespace tw {

namespace {

constexpr int kBackspace = 8;
constexpr int kPoint = '.';
constexpr int kMinus = '-';

// Writes the closing value into its field: yellow while something is left,
// red when nothing or less than nothing is, and never editable.
void setClosing(Session& s, const ClosingFamily& f) {
    const auto rest = closingRest(s.project(), f);
    if (!rest) return;
    s.setText(f.closing, closingText(*rest));
    s.setColor(f.closing, *rest <= 0.0f ? BackColor::Red : BackColor::Yellow);
    s.setLocked(f.closing, true);
}

// The family whose closing field is `closing`.
void updateFamilyOf(Session& s, Ctl closing) {
    for (const auto& f : closingFamilies(s.project()))
        if (f.closing.ctl == closing) setClosing(s, f);
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

std::string refusedKeyHint(const CtlId& id, int key) {
    const InputRule& r = inputRule(id);
    std::string name;
    if (key == kBackspace)
        name = "Backspace";
    else if (key >= 32)
        name = "'" + utf8Encode(static_cast<char32_t>(key)) + "'";
    else
        return {}; // Enter and the like: a one-line field takes none of them anyway
    std::string rule, advice;
    if (r.kind == InputKind::BentNumber) {
        rule = "Only the digits 1 to 9 are taken here";
        if (key == kBackspace)
            advice = ": select the number and type a new one";
        else if (key == '0')
            advice = ": bents 10 to 99 come in through Paste Bents or tarnwick table --add";
    } else if (r.point) {
        rule = "Only digits, one '.' and a leading '-' are taken here";
        if (key == ',')
            advice = ": use '.' for decimals";
        else if (key == kPoint)
            advice = ": the field already holds its '.'";
        else if (key == kMinus)
            advice = ": '-' goes first, once";
    } else {
        rule = "Only digits and a leading '-' are taken here (a whole number)";
        if (key == kPoint || key == ',')
            advice = ": no decimals here";
        else if (key == kMinus)
            advice = ": '-' goes first, once";
    }
    return name + " not taken. " + rule + advice;
}

void updateBatteredPileClosing(Session& s) { updateFamilyOf(s, Ctl::txtBatterPile); }

void updateCenterlineClosing(Session& s) { updateFamilyOf(s, Ctl::txtCenterline); }

void updateCapStepClosing(Session& s) { updateFamilyOf(s, Ctl::txtCapStep); }

void updateAllClosing(Session& s) {
    updateCapStepClosing(s);
    updateCenterlineClosing(s);
    updateBatteredPileClosing(s);
}

} // namespace tw
