// SPDX-License-Identifier: Apache-2.0
// Plays a script of form events against the program's logic, one event a line.
#pragma once

#include "cli/ReplayPorts.h"
#include "core/Quoting.h"
#include "core/app/App.h"
#include "platform/OpenFileHold.h"
#include "platform/Platform.h"

#include <functional>
#include <istream>
#include <map>
#include <ostream>
#include <string>
#include <vector>

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

    // The verbs a script knows, in the order `--help` lists them.
    static std::vector<std::string> verbNames();

  private:
    struct Line {
        std::vector<ScriptWord> words;
        int number = 0;
    };
    // A control as the script names it.
    struct Named {
        Target target{CtlId()};
        std::string written;
    };
    using Verb = bool (Replay::*)(const Line&);
    static const std::vector<std::pair<std::string, Verb>>& verbs();

    bool fail(const Line& l, const std::string& why);
    bool need(const Line& l, size_t words);
    bool resolve(const Line& l, Named& n);
    // The words from `from` on, joined by blanks ("\b" in a plain word is Backspace).
    static std::string textFrom(const Line& l, size_t from);
    const Control& control(const Named& n) const { return app_.ctl(n.target); }
    // Resolves the line's control and acts on it.
    bool onControl(const Line& l, const std::function<void(const Target&)>& action);

    bool type(const Line& l);
    bool paste(const Line& l);
    bool leave(const Line& l);
    bool choose(const Line& l);
    bool click(const Line& l);
    bool dblclick(const Line& l);
    bool toolbar(const Line& l);
    bool tab(const Line& l);
    bool select(const Line& l);
    bool answer(const Line& l);
    bool file(const Line& l);
    bool printer(const Line& l);
    bool show(const Line& l);
    bool state(const Line& l);
    bool focus(const Line& l);
    bool grid(const Line& l);
    bool counter(const Line& l);
    bool registerLine(const Line& l);
    bool setting(const Line& l);
    bool undo(const Line& l);
    bool redo(const Line& l);
    bool modified(const Line& l);
    bool status(const Line& l);
    bool pasteBents(const Line& l);
    bool copy(const Line& l);
    bool recent(const Line& l);
    bool bringUpToDate(const Line& l);

    // What the window's watcher would tell: the project's file changed on
    // disk; Yes reads it again, as the bar's Reload does.
    void tellChangesOnDisk();
    // What the window tells when its project is open elsewhere too.
    void holdOpenFile();

    App& app_;
    ReplayPorts& ports_;
    std::ostream& out_;
    std::ostream& err_;
    std::string told_; // the file's bytes last told of
    OpenFileHold hold_;
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
