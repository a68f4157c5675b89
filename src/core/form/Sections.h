// The sections of the main form that the bent type and the options show,
// hide, label and place.
#pragma once

namespace tw {

class App;

void applyBentType(App& app);
void installSections(App& app);

} // namespace tw
