// SPDX-License-Identifier: Apache-2.0
// tarnwick recover: the unsaved work that Open, New, Exit or a reload put
// aside, listed and brought back as a project file.
#include "cli/Cli.h"
#include "cli/QuietProject.h"
#include "core/form/Recovery.h"
#include "platform/PutAsideStore.h"

#include <charconv>
#include <iostream>

namespace tw {

namespace {

std::string fileName(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

// Tab-separated, so that a script takes a field however many blanks a path holds.
void listCopies(const std::vector<PutAsideStore::Copy>& copies) {
    int n = 0;
    for (const auto& c : copies) {
        const bool named = !c.currentFile.empty();
        std::cout << ++n << '\t' << c.kept.toString(QStringLiteral("yyyy-MM-dd HH:mm")).toStdString() << '\t'
                  << (named ? fileName(c.currentFile) : std::string("untitled")) << '\t'
                  << (named ? c.currentFile : std::string("(not saved)")) << '\t' << c.bents
                  << (c.bents == 1 ? " bent" : " bents") << '\n';
    }
}

int usage() {
    std::cerr << "tarnwick: recover takes --list, or N --output FILE\n";
    return 2;
}

} // namespace

int cliRecover(const CliOptions& opt, const std::vector<std::string>& args) {
    PutAsideStore store;
    const auto copies = store.list();
    if (args.size() == 1 && args[0] == "--list") {
        if (copies.empty()) std::cerr << "tarnwick: no work has been put aside\n";
        listCopies(copies);
        return 0;
    }
    if (args.size() != 3 || args[1] != "--output") return usage();
    int n = 0;
    const auto [end, ec] = std::from_chars(args[0].data(), args[0].data() + args[0].size(), n);
    if (ec != std::errc() || end != args[0].data() + args[0].size()) return usage();
    if (n < 1 || n > static_cast<int>(copies.size())) {
        std::cerr << "tarnwick: there is no put-aside copy " << args[0] << " (" << copies.size()
                  << " in the list; see recover --list); nothing was written\n";
        return 1;
    }
    const auto& copy = copies[static_cast<size_t>(n - 1)];
    const std::string bytes = PutAsideStore::read(copy);
    QuietProject project(opt.programDir);
    project.app.loadMainForm();
    if (bytes.empty() || !project.app.actions.restore(bytes)) {
        std::cerr << copy.path.toStdString() << ": "
                  << (project.ports.lastMessage.empty() ? "cannot be read" : project.why())
                  << "; nothing was written\n";
        return 1;
    }
    return project.writeTo(args[2]);
}

} // namespace tw
