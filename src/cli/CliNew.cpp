// SPDX-License-Identifier: Apache-2.0
// tarnwick new: the templates, listed, and a new project written from one.
#include "cli/Cli.h"
#include "cli/QuietProject.h"
#include "platform/TemplateStore.h"

#include <iostream>

namespace tw {

namespace {

int usage() {
    std::cerr << "tarnwick: new takes --list, or --template NAME --output FILE\n";
    return 2;
}

// One a line, tab-separated: the name first (one word), the bent type, where it lies.
int listTemplates(const TemplateStore& store) {
    const auto entries = store.list();
    if (entries.empty())
        std::cerr << "tarnwick: there are no templates in " << store.userFolder().toStdString() << " or "
                  << store.shippedFolder().toStdString() << '\n';
    for (const auto& e : entries)
        std::cout << e.name << '\t' << (e.problem.empty() ? e.bentType : "(does not read: " + e.problem + ")") << '\t'
                  << e.path << '\n';
    return 0;
}

} // namespace

int cliNew(const CliOptions& opt, const std::vector<std::string>& args) {
    const TemplateStore store(opt.programDir);
    if (args.size() == 1 && args[0] == "--list") return listTemplates(store);
    if (args.size() != 4 || args[0] != "--template" || args[2] != "--output") return usage();
    const std::string& name = args[1];
    const std::string& output = args[3];
    const auto found = store.find(name);
    if (!found) {
        std::cerr << "tarnwick: there is no template " << name << " (see new --list); nothing was written\n";
        return 1;
    }
    // Read first as a project is read, so that a template that does not read says so in the reader's words.
    if (QuietProject trial(opt.programDir); !trial.read(found->path)) {
        std::cerr << found->path << ": " << trial.why() << "; nothing was written\n";
        return 1;
    }
    QuietProject project(opt.programDir);
    project.app.loadMainForm();
    project.app.actions.apply(cmd::NewFromTemplate{found->name, found->path});
    return project.writeTo(output);
}

} // namespace tw
