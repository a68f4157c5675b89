// The whole project as one value: every input, the bent table and its
// bookkeeping, and the current file. Two states compare equal when saving
// one or the other would make no difference to the engineer: the window's
// modified marker and the recovery file compare against the last saved one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tw {

class App;

struct ProjectState {
    std::vector<std::string> inputs;            // in the order of projectInputs()
    std::vector<std::vector<std::string>> rows; // the bent rows, header excluded
    int columns = 0;
    std::int16_t bentCounter = 0;
    std::vector<std::string> bentRegister;
    std::string currentFile;

    friend bool operator==(const ProjectState&, const ProjectState&) = default;
};

ProjectState captureProject(const App& app);

} // namespace tw
