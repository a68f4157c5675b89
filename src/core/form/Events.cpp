// SPDX-License-Identifier: Apache-2.0
#include "core/form/Events.h"

#include "core/form/MainForm.h"
#include "core/form/NumericEntry.h"
#include "core/form/Session.h"

namespace tw {

void onGotFocus(Session& s, const CtlId& id) {
    if (isNumberField(id)) enterNumber(s, id);
}

void onLostFocus(Session& s, const CtlId& id) {
    if (isNumberField(id)) leaveNumber(s, id);
}

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

} // namespace tw
