#include "core/form/FileCommands.h"

#include "core/App.h"

namespace tw {

// Not written yet: nothing is saved.
bool saveProject(App&) { return false; }

void installFileCommands(App&) {}

} // namespace tw
