// Numeric fields: select on entry, key filter, format on leaving, and the
// closing values that show what the entered rows leave of the cap length.
#pragma once

#include <string>

namespace tw {

class App;

// The key filter of a numeric field: the key to accept, or 0 to discard it.
int filterNumericKey(int key, const std::string& text, const std::string& selected, int caret, bool minusAllowed,
                     bool pointAllowed);
// The bent number takes the digits 1 to 9 only.
int filterBentNumberKey(int key);

void updateBatteredPileClosing(App& app);
void updateCenterlineClosing(App& app);
void updateCapStepClosing(App& app);
void updateAllClosing(App& app);

} // namespace tw
