// SPDX-License-Identifier: Apache-2.0
// After a run: the printer window, the preview of the concrete data, the
// printing of the listings, the drawing, and the explanatory sketches.
#pragma once

#include "core/model/Controls.h"

#include <string>
#include <string_view>
#include <vector>

namespace tw {

class Session;

// The current file's name up to and including its first "." (the listings'
// base), and before it (the drawing's base).
// A listing's lines as the printer and the preview take them: ended by LF or
// CR LF, the last one with or without its end.
std::vector<std::string> listingLines(std::string_view bytes);

std::string dottedBase(const std::string& currentFile);
std::string plainBase(const std::string& currentFile);

// Print (menu and toolbar): the printer window, when Run has been.
void printCommand(Session& s);
// The printer window's list of outputs shows another entry.
void applyFileType(Session& s);
void previewOutput(Session& s);
void printOutputs(Session& s);
// A sketch label clicked, and the sketch window's picture double-clicked.
void showSketch(Session& s, Ctl label);
void openFullSizeSketch(Session& s);

// The outputs of the last Run (or, before any in this session, the ones
// beside the current file): the eight listings and the drawing.
struct RunOutput {
    std::string what; // "Concrete data", ...
    std::string file;
    bool drawing = false;
};
std::vector<RunOutput> runOutputs(const Session& s);

} // namespace tw
