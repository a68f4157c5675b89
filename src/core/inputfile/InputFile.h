// The input file: card-like fixed-column records the engine reads by column.
#pragma once

#include <string>

namespace tw {

class App;

// A numeric field of the file: the value without its points, left-justified
// in `width` columns; blanks for text that is no number. A value wider than
// its field is a run-time error.
std::string numericField(int width, const std::string& text);
// A two-character count, right-justified; a longer one stands as it is.
std::string countField(const std::string& text);

// The file's bytes for the current project (Windows-1252, CR LF). The
// pile-box check may stop it before record "800"; `aborted` says so.
struct InputFileText {
    std::string bytes;
    bool aborted = false;
};
InputFileText composeInputFile(App& app);

// Writes the project to `path` through a temporary sibling, so a failed
// write leaves the previous file as it was. A run-time error is shown in
// the standard error box and gives false.
bool writeInputFile(App& app, const std::string& path);

// Fills the form and the bent table from the file's bytes; run-time errors
// escape. The form should be at its defaults.
void parseInputFile(App& app, const std::string& bytes);
// Reads `path`; a failure is shown in the standard error box and gives false.
bool readInputFile(App& app, const std::string& path);

} // namespace tw
