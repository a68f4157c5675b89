// SPDX-License-Identifier: Apache-2.0
// Numeric fields: select on entry, key filter, format on leaving, and the
// closing values that show what the entered rows leave of the cap length.
#pragma once

#include "core/model/Controls.h"

#include <string>

namespace tw {

class Session;

// The key filter of a numeric field: the key to accept, or 0 to discard it.
int filterNumericKey(int key, const std::string& text, const std::string& selected, int caret, bool minusAllowed,
                     bool pointAllowed);
// The bent number takes the digits 1 to 9 only.
int filterBentNumberKey(int key);

// A number field (or the bent number) of the main form: what happens when
// it is entered, typed into and left.
bool isNumberField(const CtlId& id);
void enterNumber(Session& s, const CtlId& id);
int numberKey(const Session& s, const CtlId& id, int key);
// True when the value is refused and the field takes the focus back.
bool leaveNumber(Session& s, const CtlId& id);
// What the status bar says of a key the field's filter refused: the key and
// the rule; empty for a key that needs no word.
std::string refusedKeyHint(const CtlId& id, int key);

void updateBatteredPileClosing(Session& s);
void updateCenterlineClosing(Session& s);
void updateCapStepClosing(Session& s);
void updateAllClosing(Session& s);

} // namespace tw
