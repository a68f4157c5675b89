// SPDX-License-Identifier: Apache-2.0
// The outside world of the headless front end: every box, dialog and program
// start is printed as one line; answers come from the script's queue.
#pragma once

#include "core/ports.h"

#include <deque>
#include <ostream>
#include <string>
#include <vector>

namespace tw {

// A message box's button as scripts and output name it ("OK", "Cancel", "Yes", "No").
const char* answerName(MsgAnswer a);
std::optional<MsgAnswer> answerNamed(const std::string& name);

class ReplayPorts : public UserPorts {
  public:
    // Notices go to `err` (standard error), when given.
    ReplayPorts(std::ostream& out, std::string scriptDir, std::ostream* err = nullptr)
        : out_(out), err_(err), scriptDir_(std::move(scriptDir)) {}

    void queueAnswer(MsgAnswer a) { answers_.push_back(a); }
    // An empty optional queues a cancel.
    void queueFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
    void queuePrinter(bool ok) { printers_.push_back(ok); }

    // Set when a box showed this text ("The program has finished running." for `run`).
    bool sawMessageStartingWith(const std::string& prefix) const;

    MsgAnswer message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
    bool printerDialog() override;
    void print(const PrintDocument& doc) override;
    void setBusyCursor(bool) override {}
    void windowShow(const std::string& form, const std::string& caption) override;
    void windowClose(const std::string& form) override;
    void pictureLoaded(const std::string& control, const std::string& file) override;
    void notice(const std::string& text) override;
    void note(const std::string& text, const std::string& field) override;
    void toldPutAside(const std::string& text, const std::string& copy) override;

  private:
    std::ostream& out_;
    std::ostream* err_;
    std::string scriptDir_;
    std::deque<MsgAnswer> answers_;
    std::deque<std::optional<std::string>> files_;
    std::deque<bool> printers_;
    std::vector<std::string> messages_;
};

// The platform as the replay sees it: what it starts and what it hands the
// engine is printed before the platform does it; documents are not opened.
class ReplaySystem : public SystemPorts {
  public:
    ReplaySystem(std::ostream& out, SystemPorts& platform) : out_(out), platform_(platform) {}

    bool shellOpen(const std::string& file, const std::string& parameters, const std::string& folder) override;
    ProcessResult startAndWait(const ProgramCall& call) override;
    void cancelWaits() override { platform_.cancelWaits(); }
    bool startDetached(const ProgramCall& call) override;
    EngineResult callEngine(const std::string& programDir, const std::array<std::string, 10>& names) override;
    std::string readSetting(const std::string& app, const std::string& section, const std::string& key) override {
        return platform_.readSetting(app, section, key);
    }
    void writeSetting(const std::string& app, const std::string& section, const std::string& key,
                      const std::string& value) override {
        platform_.writeSetting(app, section, key, value);
    }
    std::string readIni(const std::string& path, const std::string& section, const std::string& key,
                        const std::string& defaultValue) override {
        return platform_.readIni(path, section, key, defaultValue);
    }
    AssociatedProgram associatedProgram(const std::string& file) override { return platform_.associatedProgram(file); }
    WriteResult emptyFiles(const std::vector<std::string>& paths) override { return platform_.emptyFiles(paths); }
    WriteResult writeFile(const std::string& path, const std::string& bytes) override {
        return platform_.writeFile(path, bytes);
    }
    WriteResult writeFileIfUnchanged(const std::string& path, const std::string& bytes, const std::string& expected,
                                     std::uintmax_t maxBytes) override {
        return platform_.writeFileIfUnchanged(path, bytes, expected, maxBytes);
    }
    ReadResult readFile(const std::string& path, std::uintmax_t maxBytes) override {
        return platform_.readFile(path, maxBytes);
    }
    PutAside putAside(const std::string& bytes, const std::string& command) override {
        return platform_.putAside(bytes, command);
    }
    PutAside putAsideFile(const std::string& path) override { return platform_.putAsideFile(path); }

  private:
    std::ostream& out_;
    SystemPorts& platform_;
};

} // namespace tw
