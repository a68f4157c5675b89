// The input file: card-like fixed-column records the engine reads by column.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

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
// The same file as a description of the project, for keeping it safe: no
// message, no pile-box check, nothing on the form changed, and a value too
// wide for its field written as it stands.
std::string describeInputFile(const App& app);

// Writes the project to `path` through the platform, which leaves the
// previous file as it was when the write fails. A run-time error is shown
// in the standard error box and gives false.
bool writeInputFile(App& app, const std::string& path);

// The largest input file read; the largest project's file is about 20 KB.
inline constexpr std::uintmax_t kMaxInputFileBytes = 1024 * 1024;

// The bytes of an input file: a regular file of at most kMaxInputFileBytes.
// Anything else, and every failure to read, is a run-time error that names the cause.
std::string readInputBytes(const std::string& path);

// Fills the form and the bent table from the file's bytes; run-time errors
// escape. The form should be at its defaults. A number field whose text is
// no number is kept as it is and, with `notes`, told there.
void parseInputFile(App& app, const std::string& bytes, std::vector<std::string>* notes = nullptr);
// Reads `path`; a failure is shown in the standard error box and gives false.
bool readInputFile(App& app, const std::string& path, std::vector<std::string>* notes = nullptr);

} // namespace tw
