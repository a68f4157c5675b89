// SPDX-License-Identifier: Apache-2.0
#include "core/form/RecentFiles.h"

#include "core/Quoting.h"
#include "core/form/FileCommands.h"
#include "core/form/Session.h"

#include <algorithm>

namespace tw {

namespace {

// Its own key: the legacy program's one setting (LastTime) stays as it was.
constexpr const char* kApp = "Usage";
constexpr const char* kSection = "RecentFiles";
constexpr const char* kKey = "Projects";

std::string fileName(const std::string& path) {
    const auto slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

void show(Session& s, const std::vector<std::string>& paths) {
    const int slots = ctlArraySize(Ctl::mnuRecentFile);
    for (int i = 0; i < slots; ++i) {
        const CtlId id(Ctl::mnuRecentFile, i);
        const bool used = i < static_cast<int>(paths.size());
        const std::string path = used ? paths[static_cast<size_t>(i)] : std::string();
        s.setText(id, path);
        s.setCaption(id, used ? "&" + std::to_string(i + 1) + " " + printableText(fileName(path)) : std::string());
        s.setVisible(id, used);
    }
}

// One path a line; a path that holds a line break (or any control
// character) is kept in double quotes with its escapes, so that it stays
// one path. A path is whole, so it never begins with a quote of its own.
std::string storedForm(const std::string& path) {
    const bool plain =
        std::none_of(path.begin(), path.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
    return plain && !path.starts_with('"') ? path : quote(path);
}

std::string pathOf(const std::string& line) {
    if (!line.starts_with('"')) return line;
    std::string error;
    const auto words = splitScriptLine(line, error);
    return words && words->size() == 1 ? words->front().text : std::string();
}

void store(Session& s, std::vector<std::string> paths) {
    if (paths.size() > static_cast<size_t>(ctlArraySize(Ctl::mnuRecentFile)))
        paths.resize(static_cast<size_t>(ctlArraySize(Ctl::mnuRecentFile)));
    std::string joined;
    for (const auto& p : paths)
        joined += storedForm(p) + '\n';
    s.system.writeSetting(kApp, kSection, kKey, joined);
    show(s, paths);
}

} // namespace

std::vector<std::string> recentFiles(const Session& s) {
    std::vector<std::string> paths;
    for (int i = 0; i < ctlArraySize(Ctl::mnuRecentFile); ++i) {
        const Control& c = s.ctl(CtlId(Ctl::mnuRecentFile, i));
        if (c.visible && !c.text.empty()) paths.push_back(c.text);
    }
    return paths;
}

void showRecentFiles(Session& s) {
    std::vector<std::string> paths;
    const std::string stored = s.system.readSetting(kApp, kSection, kKey);
    for (size_t from = 0; from < stored.size();) {
        const size_t end = std::min(stored.find('\n', from), stored.size());
        std::string path = pathOf(stored.substr(from, end - from));
        if (!path.empty() && std::find(paths.begin(), paths.end(), path) == paths.end())
            paths.push_back(std::move(path));
        from = end + 1;
    }
    if (paths.size() > static_cast<size_t>(ctlArraySize(Ctl::mnuRecentFile)))
        paths.resize(static_cast<size_t>(ctlArraySize(Ctl::mnuRecentFile)));
    show(s, paths);
}

void rememberRecentFile(Session& s, const std::string& path) {
    // Another window may have added projects since this one started.
    showRecentFiles(s);
    auto paths = recentFiles(s);
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    store(s, std::move(paths));
}

void openRecentFile(Session& s, int index) {
    auto paths = recentFiles(s);
    if (index < 0 || index >= static_cast<int>(paths.size())) return;
    const std::string path = paths[static_cast<size_t>(index)];
    if (s.system.readFile(path, kMaxInputFileBytes).errorNumber == err::kFileNotFound) {
        paths.erase(paths.begin() + index);
        store(s, std::move(paths));
        s.notice(fileName(path) + " is no longer at " + path + "; it was taken off the recent projects.");
        return;
    }
    openPath(s, path);
}

} // namespace tw
