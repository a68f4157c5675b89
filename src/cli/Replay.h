// Plays a script of form events against the program's logic, one event a line.
#pragma once

#include "cli/ReplayPorts.h"
#include "core/App.h"
#include "platform/Platform.h"

#include <istream>
#include <ostream>
#include <string>

namespace tw {

class Replay {
  public:
    Replay(App& app, ReplayPorts& ports, std::ostream& out, std::ostream& err)
        : app_(app), ports_(ports), out_(out), err_(err) {}

    // Runs every line; 0 at the end of the script or when the main form
    // was unloaded, 2 at the first line that cannot be carried out.
    int run(std::istream& script);
    // One line; false (with the reason printed) when it cannot be carried out.
    bool runLine(const std::string& line, int lineNumber);

  private:
    struct Target {
        std::string form;
        CtlId id;
        std::string written; // as the script names it
    };
    bool resolve(const std::string& word, Target& t, std::string& why) const;
    bool fail(int lineNumber, const std::string& why);
    void showState(const Target& t);

    App& app_;
    ReplayPorts& ports_;
    std::ostream& out_;
    std::ostream& err_;
};

// A replay against the real platform, as `tarnwick replay` and `run` use it;
// relative paths in file lines are taken from `scriptDir`.
struct ReplaySession {
    ReplaySession(std::ostream& out, std::ostream& err, const std::string& scriptDir, const std::string& programDir);
    ReplayPorts user;
    Platform platform;
    ReplaySystem system;
    App app;
    Replay replay;
};

} // namespace tw
