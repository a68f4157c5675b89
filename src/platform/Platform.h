// QtCore services shared by the window and the headless front end.
#pragma once

#include "core/ports.h"

#include <array>
#include <string>

namespace tw {

class Platform {
  public:
    // Per-user settings, one text value by application, section and key.
    std::string readSetting(const std::string& app, const std::string& section, const std::string& key);
    void writeSetting(const std::string& app, const std::string& section, const std::string& key,
                      const std::string& value);

    // Starts a command line without a shell; waits for its end while events run.
    ProcessResult startAndWait(const std::string& commandLine);

    bool startDetached(const std::string& commandLine);

    // Calls DLL_ROUT of the engine library in `programDir`.
    EngineResult callEngine(const std::string& programDir, const std::array<std::string, 10>& names);

    // The desktop's program for the file's type.
    AssociatedProgram associatedProgram(const std::string& file);

    // Opens a document with its associated program.
    void shellOpen(const std::string& file, const std::string& folder);
};

// One key of an INI file read the way the Windows private-profile read
// does: sections and keys without regard to case, the value taken raw (no
// escapes), surrounding quotes dropped, at most 255 characters.
std::string readIniRaw(const std::string& path, const std::string& section, const std::string& key,
                       const std::string& defaultValue);

// The engine call itself, in the process that runs it: 0, or a nonzero
// status when the library or its entry point cannot be found (told on stderr).
int callEngineHere(const std::string& programDir, const std::array<std::string, 10>& names);

// The folder of the running executable.
std::string executableDir();

} // namespace tw
