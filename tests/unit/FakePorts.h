// SPDX-License-Identifier: Apache-2.0
// Ports for unit tests: answers from queues, everything recorded.
#pragma once

#include "core/app/App.h"
#include "core/form/FileCommands.h"
#include "core/form/MainForm.h"
#include "core/form/Recovery.h"
#include "core/inputfile/InputFile.h"
#include "core/inputfile/ProjectReader.h"
#include "core/ports.h"
#include "platform/FileRead.h"
#include "platform/OutputFiles.h"
#include "platform/PutAsideStore.h"
#include "platform/SafeFile.h"

#include <deque>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tw::test {

struct ShownMessage {
    std::string text, title;
    MsgButtons buttons;
    MsgIcon icon;
};

class FakePorts : public UserPorts, public SystemPorts {
  public:
    std::deque<MsgAnswer> answers;
    std::deque<std::optional<std::string>> files;
    std::deque<bool> printers;
    std::vector<ShownMessage> messages;
    std::vector<FileDialogRequest> dialogs;
    std::vector<PrintDocument> printed;
    std::vector<std::string> started; // as command lines
    std::vector<ProgramCall> calls;   // as the programs get them
    std::vector<std::array<std::string, 10>> engineCalls;
    std::vector<std::string> log; // window, picture and shell events
    std::map<std::string, std::string> settings;
    std::map<std::string, std::string> ini;
    ProcessResult processResult{true, 0, false, {}, {}};
    EngineResult engineResult{true, 0, {}, {}};
    AssociatedProgram association;
    bool desktopOpens = true;
    std::vector<std::string> waits;   // "begin WHAT" and "end", in order
    std::vector<std::string> notices; // the words that need no answer
    int cancels = 0;
    // What happens while a wait lasts (the user cancelling it, say).
    std::function<void()> duringWait;

    MsgAnswer message(const std::string& text, const std::string& title, MsgButtons b, MsgIcon i) override {
        messages.push_back({text, title, b, i});
        if (!answers.empty()) {
            auto a = answers.front();
            answers.pop_front();
            return a;
        }
        return b == MsgButtons::YesNo ? MsgAnswer::Yes : MsgAnswer::OK;
    }
    std::optional<std::string> fileDialog(const FileDialogRequest& r) override {
        dialogs.push_back(r);
        if (files.empty()) return std::nullopt;
        auto f = files.front();
        files.pop_front();
        return f;
    }
    bool printerDialog() override {
        if (printers.empty()) return false;
        bool ok = printers.front();
        printers.pop_front();
        return ok;
    }
    void print(const PrintDocument& doc) override { printed.push_back(doc); }
    bool shellOpen(const std::string& f, const std::string& p, const std::string& d) override {
        log.push_back("shell-open " + f + " " + p + " " + d);
        return desktopOpens;
    }
    void showDocument(const std::string& f) override { log.push_back("document " + f); }
    ProcessResult startAndWait(const ProgramCall& call) override {
        started.push_back(call.commandLine());
        calls.push_back(call);
        if (duringWait) duringWait();
        return processResult;
    }
    void cancelWaits() override { ++cancels; }
    // A read fails with this, when set: faults a disk can have.
    std::optional<ReadResult> readFault;
    ReadResult readFile(const std::string& path, std::uintmax_t maxBytes) override {
        if (readFault) return *readFault;
        return readRegularFile(path, maxBytes);
    }
    // The bytes as they are, no more: the careful writing is the platform's, tested there.
    WriteResult writeFile(const std::string& path, const std::string& bytes) override {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.flush();
        if (!out) return {err::kPathNotFound, "Path/File access error: cannot write " + path};
        return {};
    }
    // Runs once, inside the next write on condition, before it looks at the
    // file: another window's save at the worst moment.
    std::function<void()> beforeWrite;
    WriteResult writeFileIfUnchanged(const std::string& path, const std::string& bytes, const std::string& expected,
                                     std::uintmax_t maxBytes) override {
        if (beforeWrite) std::exchange(beforeWrite, {})();
        return replaceFileIfUnchanged(path, bytes, expected, maxBytes);
    }
    // Emptied for real: Run's tests look at the files.
    WriteResult emptyFiles(const std::vector<std::string>& paths) override { return emptyOutputFiles(paths); }
    void waitBegins(const std::string& what, std::function<void()>) override { waits.push_back("begin " + what); }
    void waitEnds() override { waits.push_back("end"); }
    void notice(const std::string& text) override { notices.push_back(text); }
    // Copies put aside (the command and the bytes), what the user was told of
    // them, and the failure a put-aside meets, when set.
    std::vector<std::pair<std::string, std::string>> putAsides;
    std::vector<std::string> putAsideTold;
    std::optional<std::string> putAsideFault;
    bool putAsideOnDisk = false; // in the user's real folder of put-aside work
    PutAside putAside(const std::string& bytes, const std::string& command) override {
        if (putAsideFault) return {false, {}, {}, *putAsideFault};
        if (putAsideOnDisk) return putAsideInStore(bytes, command);
        putAsides.emplace_back(command, bytes);
        return {true, "/put-aside/" + std::to_string(putAsides.size()), "12:34", {}};
    }
    // Files Run put aside before it emptied them: their paths and bytes.
    std::vector<std::pair<std::string, std::string>> filesPutAside;
    PutAside putAsideFile(const std::string& path) override {
        if (putAsideFault) return {false, {}, {}, *putAsideFault};
        std::ifstream in(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        if (bytes.empty()) return {};
        filesPutAside.emplace_back(path, bytes);
        return {true, "/put-aside/outputs/" + std::to_string(filesPutAside.size()), "12:34", {}};
    }
    void toldPutAside(const std::string& text, const std::string& copy) override {
        putAsideTold.push_back(text + (copy.empty() ? "" : " @" + copy));
    }
    bool startDetached(const ProgramCall& call) override {
        started.push_back(call.commandLine());
        calls.push_back(call);
        return processResult.started;
    }
    EngineResult callEngine(const std::string&, const std::array<std::string, 10>& names) override {
        engineCalls.push_back(names);
        return engineResult;
    }
    std::string readSetting(const std::string& a, const std::string& s, const std::string& k) override {
        auto it = settings.find(a + "/" + s + "/" + k);
        return it == settings.end() ? std::string() : it->second;
    }
    void writeSetting(const std::string& a, const std::string& s, const std::string& k, const std::string& v) override {
        settings[a + "/" + s + "/" + k] = v;
    }
    std::string readIni(const std::string&, const std::string& s, const std::string& k, const std::string& d) override {
        auto it = ini.find(s + "/" + k);
        return it == ini.end() ? d : it->second;
    }
    AssociatedProgram associatedProgram(const std::string&) override { return association; }
    void setBusyCursor(bool busy) override { log.push_back(busy ? "busy" : "default"); }
    void windowShow(const std::string& f, const std::string& c) override { log.push_back("show " + f + " " + c); }
    void windowClose(const std::string& f) override { log.push_back("close " + f); }
    void pictureLoaded(const std::string& c, const std::string& f) override { log.push_back("picture " + c + " " + f); }
};

// The form's logic with its main form loaded, as after the splash: what
// the handlers see.
struct Loaded {
    FakePorts ports;
    std::unique_ptr<Session> session;
    explicit Loaded(const std::string& programDir = "/nonexistent") {
        session = std::make_unique<Session>(ports, ports, programDir);
        loadMainForm(*session);
        session->takeLog();
    }
    Session& operator*() { return *session; }
    Session* operator->() { return session.get(); }
};

// The whole program as a front end sees it: its state read, its commands given.
struct Program {
    FakePorts ports;
    std::unique_ptr<App> app;
    explicit Program(const std::string& programDir = "/nonexistent") {
        app = std::make_unique<App>(ports, ports, programDir);
        app->loadMainForm();
    }
    App& operator*() { return *app; }
    App* operator->() { return app.get(); }
};

// A project made on a form of its own: the makers fill a form.
inline Project made(const std::function<void(Session&)>& make) {
    FakePorts ports;
    Session s(ports, ports, "/nonexistent");
    loadMainForm(s);
    make(s);
    return s.project();
}

// Puts a project on the program the way an engineer's comes: its file
// written at `path`, then opened as a dropped file is. False when the
// program did not take it.
inline bool openAs(App& app, const Project& project, const std::string& path) {
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out << describeInputFile(project);
        if (!out.flush()) return false;
    }
    app.actions.apply(cmd::OpenPath{path});
    return app.project().currentFile == path;
}

} // namespace tw::test
