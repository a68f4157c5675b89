// After a run: the printer window, the preview of the concrete data, the
// printing of the listings, the drawing, and the explanatory sketches.
#pragma once

#include "core/model/Choices.h"

#include <optional>
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

// The sketch a small picture's base name ("cbwbw") or else a full-size
// picture's key ("cwbw") stands for: the label that shows it and its bent type.
struct SketchName {
    Ctl label;
    BentType type;
};
std::optional<SketchName> sketchNamed(const std::string& name);

} // namespace tw
