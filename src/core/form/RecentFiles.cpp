// SPDX-License-Identifier: Apache-2.0
#include "core/form/RecentFiles.h"

#include "core/Quoting.h"
#include "core/form/Session.h"
#include "core/inputfile/InputFile.h"

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

// The last `parts` folders a path lies in ("jobs/a" for "/home/x/jobs/a/bridge.ebnt" and 2).
std::string folderTail(const std::string& path, int parts) {
    size_t end = path.find_last_of("/\\");
    if (end == std::string::npos || end == 0) return path.substr(0, end == 0 ? 1 : 0);
    size_t from = end;
    for (int n = 0; n < parts && from != std::string::npos && from > 0; ++n)
        from = path.find_last_of("/\\", from - 1);
    return from == std::string::npos ? path.substr(0, end) : path.substr(from + 1, end - from - 1);
}

// What the menu shows of each path: its name, and where two share a name, as
// many of their folders as tell them apart.
std::vector<std::string> captionsOf(const std::vector<std::string>& paths) {
    std::vector<std::string> captions;
    for (const auto& p : paths) {
        const std::string name = fileName(p);
        std::vector<std::string> namesakes;
        for (const auto& other : paths)
            if (other != p && fileName(other) == name) namesakes.push_back(other);
        if (namesakes.empty()) {
            captions.push_back(name);
            continue;
        }
        std::string folder;
        for (int parts = 1;; ++parts) {
            std::string longer = folderTail(p, parts);
            if (parts > 1 && longer == folder) break; // the whole folder already
            folder = std::move(longer);
            if (std::none_of(namesakes.begin(), namesakes.end(),
                             [&](const std::string& o) { return folderTail(o, parts) == folder; }))
                break;
        }
        captions.push_back(name + " (" + folder + ")");
    }
    return captions;
}

void show(Session& s, const std::vector<std::string>& paths) {
    const int slots = ctlArraySize(Ctl::mnuRecentFile);
    const std::vector<std::string> captions = captionsOf(paths);
    for (int i = 0; i < slots; ++i) {
        const CtlId id(Ctl::mnuRecentFile, i);
        const bool used = i < static_cast<int>(paths.size());
        const std::string path = used ? paths[static_cast<size_t>(i)] : std::string();
        s.setText(id, path);
        s.setCaption(id, used ? "&" + std::to_string(i + 1) + " " + printableText(captions[static_cast<size_t>(i)])
                              : std::string());
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

std::optional<std::string> recentFileToOpen(Session& s, int index) {
    auto paths = recentFiles(s);
    if (index < 0 || index >= static_cast<int>(paths.size())) return std::nullopt;
    const std::string path = paths[static_cast<size_t>(index)];
    if (s.system.readFile(path, kMaxInputFileBytes).errorNumber == err::kFileNotFound) {
        paths.erase(paths.begin() + index);
        store(s, std::move(paths));
        s.notice(fileName(path) + " is no longer at " + path + "; it was taken off the recent projects.");
        return std::nullopt;
    }
    return path;
}

} // namespace tw
