// SPDX-License-Identifier: Apache-2.0
#include "cli/ReplayPorts.h"

#include "core/Quoting.h"

#include <filesystem>

namespace tw {

namespace {

const char* buttonsName(MsgButtons b) {
    static const char* const names[] = {"OK", "OKCancel", "YesNo"};
    return names[static_cast<int>(b)];
}

// The buttons as scripts and output name them, in the order of MsgAnswer.
const char* const kAnswerNames[] = {"OK", "Cancel", "Yes", "No"};

MsgAnswer firstButton(MsgButtons b) { return b == MsgButtons::YesNo ? MsgAnswer::Yes : MsgAnswer::OK; }

// Names reach the engine padded with blanks; the log shows them without.
std::string unpadded(const std::string& s) {
    auto e = s.find_last_not_of(' ');
    return e == std::string::npos ? std::string() : s.substr(0, e + 1);
}

} // namespace

const char* answerName(MsgAnswer a) { return kAnswerNames[static_cast<int>(a)]; }

std::optional<MsgAnswer> answerNamed(const std::string& name) {
    for (int i = 0; i < 4; ++i)
        if (name == kAnswerNames[i]) return static_cast<MsgAnswer>(i);
    return std::nullopt;
}

bool ReplayPorts::sawMessageStartingWith(const std::string& prefix) const {
    for (const auto& m : messages_)
        if (m.rfind(prefix, 0) == 0) return true;
    return false;
}

MsgAnswer ReplayPorts::message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) {
    MsgAnswer a = firstButton(buttons);
    if (!answers_.empty()) {
        a = answers_.front();
        answers_.pop_front();
    }
    messages_.push_back(text);
    out_ << "message " << quote(title) << ' ' << quote(text) << ' ' << buttonsName(buttons) << ' '
         << (icon == MsgIcon::Critical ? "critical" : "none") << " -> " << answerName(a) << '\n';
    return a;
}

std::optional<std::string> ReplayPorts::fileDialog(const FileDialogRequest& r) {
    std::optional<std::string> path;
    if (!files_.empty()) {
        path = files_.front();
        files_.pop_front();
    }
    if (path) {
        std::filesystem::path p(*path);
        if (p.is_relative()) p = std::filesystem::path(scriptDir_) / p;
        path = p.lexically_normal().string();
    }
    out_ << "dialog " << (r.kind == FileDialogKind::Open ? "open" : "save") << ' ' << quote(r.title) << ' '
         << quote(r.filter) << ' ' << quote(r.defaultExt) << " overwrite=" << (r.overwritePrompt ? 1 : 0) << " -> "
         << (path ? quote(*path) : std::string("cancel")) << '\n';
    return path;
}

bool ReplayPorts::printerDialog() {
    bool ok = false;
    if (!printers_.empty()) {
        ok = printers_.front();
        printers_.pop_front();
    }
    out_ << "printer -> " << (ok ? "ok" : "cancel") << '\n';
    return ok;
}

void ReplayPorts::print(const PrintDocument& doc) {
    out_ << "print " << quote(doc.file) << ' ' << doc.lines.size() << " lines\n";
}

bool ReplaySystem::shellOpen(const std::string& file, const std::string& parameters, const std::string& folder) {
    out_ << "shell-open " << quote(file) << ' ' << quote(parameters) << ' ' << quote(folder) << '\n';
    return true;
}

ProcessResult ReplaySystem::startAndWait(const ProgramCall& call) {
    out_ << "start " << quote(call.commandLine()) << '\n';
    out_.flush();
    return platform_.startAndWait(call);
}

bool ReplaySystem::startDetached(const ProgramCall& call) {
    out_ << "start " << quote(call.commandLine()) << '\n';
    out_.flush();
    return platform_.startDetached(call);
}

EngineResult ReplaySystem::callEngine(const std::string& programDir, const std::array<std::string, 10>& names) {
    out_ << "engine";
    for (const auto& n : names)
        out_ << ' ' << quote(unpadded(n));
    out_ << '\n';
    out_.flush();
    return platform_.callEngine(programDir, names);
}

void ReplayPorts::windowShow(const std::string& form, const std::string& caption) {
    out_ << "window show " << form << ' ' << quote(caption) << '\n';
}

void ReplayPorts::windowClose(const std::string& form) { out_ << "window close " << form << '\n'; }

void ReplayPorts::pictureLoaded(const std::string& control, const std::string& file) {
    out_ << "picture " << control << ' ' << quote(file) << '\n';
}

void ReplayPorts::notice(const std::string& text) {
    if (err_ && !text.empty()) *err_ << "tarnwick: warning: " << text << '\n';
}

// What the window says beside the user's work without stopping it.
void ReplayPorts::note(const std::string& text, const std::string&) {
    if (err_ && !text.empty()) *err_ << "tarnwick: note: " << text << '\n';
}

void ReplayPorts::toldPutAside(const std::string& text, const std::string&) { note(text, {}); }

} // namespace tw
