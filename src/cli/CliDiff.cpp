// SPDX-License-Identifier: Apache-2.0
// tarnwick diff A B: what changed from one revision of a project to another.
#include "cli/Cli.h"
#include "cli/QuietProject.h"
#include "core/app/ProjectDiff.h"

#include <iostream>

namespace tw {

int cliDiff(const CliOptions& opt, const std::string& a, const std::string& b) {
    QuietProject first(opt.programDir), second(opt.programDir);
    for (auto [project, file] : {std::pair{&first, &a}, std::pair{&second, &b}})
        if (!project->read(*file)) {
            std::cerr << *file << ": " << project->why() << '\n';
            return 2;
        }
    DiffOptions options;
    options.units = unitsOf(opt);
    options.names = opt.names;
    const auto lines = projectDifferences(first.app.project(), second.app.project(), options);
    for (const auto& line : lines)
        std::cout << line << '\n';
    return lines.empty() ? 0 : 1;
}

} // namespace tw
