// SPDX-License-Identifier: Apache-2.0
// The main form's handlers, by event: which rule answers a field entered,
// left, typed into or chosen in, and a tab brought to the front. A switch
// on the control names the rule, so an event can be followed by reading.
#pragma once

#include "core/model/Controls.h"

namespace tw {

class Session;

void onGotFocus(Session& s, const CtlId& id);
// True when the field refuses its value and takes the focus back.
bool onLostFocus(Session& s, const CtlId& id);
// The key a field's key filter lets through, or 0 when it drops it.
int onKeyPress(Session& s, const CtlId& id, int key);
// A combo box of the main form shows another item.
void onChoiceChanged(Session& s, const CtlId& id);
void onTabChanged(Session& s, int tab);

// The focus moves to `id`: the field that loses it is left first (its leave
// handler may keep it, refusing a value), then `id` runs its focus handler.
void moveFocus(Session& s, const CtlId& id);
// The field holding the focus is left and nothing holds it.
void leaveFocus(Session& s);
// The leave handler of a field that does not hold the focus.
void leaveField(Session& s, const CtlId& id);

} // namespace tw
