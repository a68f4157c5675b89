// SPDX-License-Identifier: Apache-2.0
#include "core/form/Events.h"

#include "core/form/MainForm.h"
#include "core/form/NumericEntry.h"

namespace tw {

void onGotFocus(Session& s, const CtlId& id) {
    if (isNumberField(id)) enterNumber(s, id);
}

void onLostFocus(Session& s, const CtlId& id) {
    if (isNumberField(id)) leaveNumber(s, id);
}

int onKeyPress(Session& s, const CtlId& id, int key) { return isNumberField(id) ? numberKey(s, id, key) : key; }

void onChoiceChanged(Session& s, const CtlId& id) { applyChoice(s, id.ctl); }

void onTabChanged(Session& s, int tab) { applyTab(s, tab); }

} // namespace tw
