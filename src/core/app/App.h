// SPDX-License-Identifier: Apache-2.0
// The running program for a front end: the session (project, forms, ports),
// its history, and the funnel every user action goes through. A front end
// reads through the const accessors and changes things only by commands.
#pragma once

#include "core/app/Funnel.h"
#include "core/app/History.h"
#include "core/app/UserActions.h"
#include "core/form/Session.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tw {

class App : private Funnel {
  public:
    App(UserPorts& user, SystemPorts& system, std::string programDir);
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    UserPorts& user() { return session_.user; }
    SystemPorts& system() { return session_.system; }
    const std::string& programDir() const { return session_.programDir; }

    // --- What there is to see.
    const Session& session() const { return session_; }
    const Project& project() const { return session_.project(); }
    const Form& form(FormId f) const { return session_.form(f); }
    const Form& main() const { return session_.main(); }
    const Control& ctl(const Target& t) const { return session_.ctl(t); }
    std::string text(const Target& t) const { return session_.text(t); }
    std::optional<CtlId> focus() const { return session_.focus(); }
    GridSelection selection() const { return session_.selection(); }
    int currentTab() const { return session_.currentTab(); }
    bool mainUnloaded() const { return session_.mainUnloaded(); }
    const History& history() const { return history_; }
    // The project differs from what was last saved, opened or started afresh.
    bool modified() const;

    // What the user does enters here: the window and the replay call nothing else.
    UserActions actions{static_cast<Funnel&>(*this)};

    // --- What the front end does itself, outside the user's actions.
    // The splash, the first window.
    void start();
    // The main form as the window has it after the splash's OK (the replay starts there).
    void loadMainForm();
    // Reads an input file onto the form at its defaults (check, dump, draw); a
    // failure ends in the error box and gives false.
    bool readFile(const std::string& path, std::vector<std::string>* notes = nullptr);
    // Writes the project to `path` as a save does, without its dialogs; true
    // when the whole file was written.
    bool writeFile(const std::string& path);
    // A failure nothing caught: the standard error box.
    void reportFailure(const std::string& what);

  private:
    Session& working() override { return session_; }
    ChangeSet perform(const std::function<void()>& body, const std::string& label = {},
                      std::optional<CtlId> control = {}, std::optional<int> row = {}) override;
    ChangeSet walkHistory(bool forward) override;
    void trackSaved(const ChangeLog& log);
    void showHistory();
    ChangeSet finish(ChangeLog log);

    Session session_;
    History history_;
    // What differs from the saved project: inputs, and whether the table and the bookkeeping do.
    std::set<int> differing_;
    bool tableDiffers_ = false;
    bool bookkeepingDiffers_ = false;
};

} // namespace tw
