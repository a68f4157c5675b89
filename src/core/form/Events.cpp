// SPDX-License-Identifier: Apache-2.0
#include "core/form/Events.h"

#include "core/form/MainForm.h"
#include "core/form/NumericEntry.h"
#include "core/form/Session.h"

namespace tw {

void onGotFocus(Session& s, const CtlId& id) {
    if (isNumberField(id)) enterNumber(s, id);
}

bool onLostFocus(Session& s, const CtlId& id) { return isNumberField(id) && leaveNumber(s, id); }

int onKeyPress(Session& s, const CtlId& id, int key) {
    if (!isNumberField(id)) return key;
    const int taken = numberKey(s, id, key);
    // A key dropped without a word reads as a typing slip ("3,5" becomes
    // 35): the status bar names the key and the field's rule, and keeps
    // saying it while the engineer types on in that field.
    if (taken == 0 && !s.ctl(id).locked) {
        if (std::string hint = refusedKeyHint(id, key); !hint.empty()) s.hint(hint, id);
    } else if (taken != 0) {
        s.clearHint(id);
    }
    return taken;
}

void onChoiceChanged(Session& s, const CtlId& id) { applyChoice(s, id.ctl); }

void onTabChanged(Session& s, int tab) { applyTab(s, tab); }

void leaveField(Session& s, const CtlId& id) {
    if (onLostFocus(s, id)) moveFocus(s, id);
    s.mark(change::Left{id});
}

void moveFocus(Session& s, const CtlId& id) {
    if (s.focus() == std::optional<CtlId>(id)) return;
    const auto old = s.focus();
    s.placeFocus(std::nullopt);
    if (old) leaveField(s, *old);
    // A leave handler that keeps the focus (a refused value) wins.
    if (s.focus()) return;
    s.placeFocus(id);
    onGotFocus(s, id);
}

void leaveFocus(Session& s) {
    const auto old = s.focus();
    s.placeFocus(std::nullopt);
    if (old) leaveField(s, *old);
}

} // namespace tw
