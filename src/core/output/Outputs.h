// After a run: the printer window, the preview of the concrete data, the
// printing of the listings, the drawing, and the explanatory sketches.
#pragma once

#include <string>

namespace tw {

class App;

// The current file's name up to and including its first "." (the listings'
// base), and before it (the drawing's base).
std::string dottedBase(const App& app);
std::string plainBase(const App& app);

// True when the concrete data file holds no "ERROR LINE" (or cannot be read).
bool concreteDataIsClean(const std::string& concreteFile);

// The title of the sketch window for a sketch key; empty for an unknown key.
std::string sketchTitle(const std::string& key);

} // namespace tw
