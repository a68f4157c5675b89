// SPDX-License-Identifier: Apache-2.0
// QtCore services shared by the window and the headless front end.
#pragma once

#include "core/ports.h"
#include "platform/SettingsFile.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QProcess;

namespace tw {

class Platform : public SystemPorts {
  public:
    bool shellOpen(const std::string& file, const std::string& parameters, const std::string& folder) override;
    ProcessResult startAndWait(const ProgramCall& call) override;
    void cancelWaits() override;
    // A program waited for that still runs after this many seconds is ended (0: no limit).
    void setTimeLimit(int seconds) { timeLimit_ = std::clamp(seconds, 0, kLongestTimeLimit); }
    bool startDetached(const ProgramCall& call) override;
    // The engine runs in a child process of ours (see callEngineHere).
    EngineResult callEngine(const std::string& programDir, const std::array<std::string, 10>& names) override;
    // Per-user settings, one text value by application, section and key.
    std::string readSetting(const std::string& app, const std::string& section, const std::string& key) override;
    void writeSetting(const std::string& app, const std::string& section, const std::string& key,
                      const std::string& value) override;
    std::string readIni(const std::string& path, const std::string& section, const std::string& key,
                        const std::string& defaultValue) override;
    // The desktop's program for the file's type.
    AssociatedProgram associatedProgram(const std::string& file) override;
    WriteResult emptyFiles(const std::vector<std::string>& paths) override;
    WriteResult writeFile(const std::string& path, const std::string& bytes) override;
    WriteResult writeFileIfUnchanged(const std::string& path, const std::string& bytes, const std::string& expected,
                                     std::uintmax_t maxBytes) override;
    ReadResult readFile(const std::string& path, std::uintmax_t maxBytes) override;
    // In the user's folder of put-aside work (PutAsideStore).
    PutAside putAside(const std::string& bytes, const std::string& command) override;
    PutAside putAsideFile(const std::string& path) override;

    // Where a word for the user goes that no command waits for (a settings
    // file that cannot be used); standard error when unset.
    std::function<void(const std::string&)> onWarning;

  private:
    void tellSettingsProblem();
    SettingsFile settings_;
    bool told_ = false;

    // Starts the program in a process group of its own that ends with us,
    // and returns when it has ended or could not start; the user interface
    // keeps processing events meanwhile.
    WaitEnd runAndWait(QProcess& proc, const QString& program, const QStringList& args);

    struct Wait {
        WaitEnd* end;
        std::function<void()> stop;
    };
    std::vector<Wait*> waits_;
    static constexpr int kLongestTimeLimit = 2'000'000; // seconds a timer can count (23 days)
    int timeLimit_ = 0;
};

// One key of an INI file read the way the Windows private-profile read
// does: sections and keys without regard to case, the value taken raw (no
// escapes), surrounding quotes dropped, at most 255 characters.
std::string readIniRaw(const std::string& path, const std::string& section, const std::string& key,
                       const std::string& defaultValue);

// The engine call itself, in the process that runs it: 0, or a nonzero
// status when the library or its entry point cannot be found (told on stderr).
int callEngineHere(const std::string& programDir, const std::array<std::string, 10>& names);
// The engine child's whole work when these are its arguments (--engine-call
// DIR and the ten names): the status to end with; nothing otherwise.
std::optional<int> engineCall(int argc, char** argv);

// The folder of the running executable.
std::string executableDir();

} // namespace tw
