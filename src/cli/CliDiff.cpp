// SPDX-License-Identifier: Apache-2.0
// tarnwick diff A B: what changed from one revision of a project to another.
#include "cli/Cli.h"
#include "core/app/ProjectDiff.h"
#include "platform/ProjectFile.h"

#include <iostream>

namespace tw {

int cliDiff(const CliOptions& opt, const std::string& a, const std::string& b) {
    const ProjectRead first = readProjectFile(a);
    if (!first.ok()) {
        std::cerr << a << ": " << whyUnread(first) << '\n';
        return 2;
    }
    const ProjectRead second = readProjectFile(b);
    if (!second.ok()) {
        std::cerr << b << ": " << whyUnread(second) << '\n';
        return 2;
    }
    DiffOptions options;
    options.units = unitsOf(opt);
    options.names = opt.names;
    const auto lines = projectDifferences(first.project, second.project, options);
    for (const auto& line : lines)
        std::cout << line << '\n';
    return lines.empty() ? 0 : 1;
}

} // namespace tw
