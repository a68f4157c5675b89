// SPDX-License-Identifier: Apache-2.0
// Ports for working without anyone watching: a box is remembered, not
// shown (answered with its first button), dialogs are cancelled, nothing is
// started or written, and settings live only as long as the object, so a
// headless check leaves the user's own settings and files alone. How files
// are read is the user's of these ports to say.
#pragma once

#include "core/Errors.h"
#include "core/ports.h"

#include <map>
#include <string>

namespace tw {

class QuietPorts : public UserPorts, public SystemPorts {
  public:
    std::string lastMessage;

    MsgAnswer message(const std::string& text, const std::string&, MsgButtons b, MsgIcon) override {
        lastMessage = text;
        return b == MsgButtons::YesNo ? MsgAnswer::Yes : MsgAnswer::OK;
    }
    std::optional<std::string> fileDialog(const FileDialogRequest&) override { return std::nullopt; }
    bool printerDialog() override { return false; }
    void print(const PrintDocument&) override {}
    void setBusyCursor(bool) override {}
    void windowShow(const std::string&, const std::string&) override {}
    void windowClose(const std::string&) override {}
    void pictureLoaded(const std::string&, const std::string&) override {}

    bool shellOpen(const std::string&, const std::string&, const std::string&) override { return true; }
    ProcessResult startAndWait(const ProgramCall&) override { return {}; }
    void cancelWaits() override {}
    bool startDetached(const ProgramCall&) override { return false; }
    EngineResult callEngine(const std::string&, const std::array<std::string, 10>&) override { return {}; }
    std::string readSetting(const std::string& a, const std::string& s, const std::string& k) override {
        return settings_[a + "/" + s + "/" + k];
    }
    void writeSetting(const std::string& a, const std::string& s, const std::string& k, const std::string& v) override {
        settings_[a + "/" + s + "/" + k] = v;
    }
    std::string readIni(const std::string&, const std::string&, const std::string&, const std::string& d) override {
        return d;
    }
    AssociatedProgram associatedProgram(const std::string&) override { return {}; }
    WriteResult emptyFiles(const std::vector<std::string>& paths) override {
        return {err::kFileAccess, "Path/File access error: nothing is written here, so " +
                                      (paths.empty() ? std::string("nothing") : paths.front()) + " was left alone"};
    }
    WriteResult writeFile(const std::string& path, const std::string&) override {
        return {err::kFileAccess, "Path/File access error: nothing is written here, so " + path + " was left alone"};
    }
    WriteResult writeFileIfUnchanged(const std::string& path, const std::string& bytes, const std::string&,
                                     std::uintmax_t) override {
        return writeFile(path, bytes);
    }
    PutAside putAside(const std::string&, const std::string&) override {
        return {false, {}, {}, "nothing is kept by a command without a window"};
    }
    PutAside putAsideFile(const std::string& path) override {
        return {false, {}, {}, "nothing is kept by a command without a window, so " + path + " was left alone"};
    }

  private:
    std::map<std::string, std::string> settings_;
};

} // namespace tw
