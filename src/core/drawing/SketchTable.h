// SPDX-License-Identifier: Apache-2.0
// The explanatory sketches as issued: which picture each sketch label shows
// for each bent type, the key of its full-size picture, and the sketch
// window's title for a key.
#pragma once

#include "core/model/Choices.h"
#include "core/model/Controls.h"

#include <optional>
#include <string>
#include <vector>

namespace tw {

struct SketchEntry {
    Ctl label;
    BentType type;
    const char* picture; // "/Drawing/<name>.jpg", from the program folder
    const char* key;     // the full-size picture is <key>.tif
};

const std::vector<SketchEntry>& sketchTable();

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
