#include "cli/Cli.h"

#include <iostream>

namespace tw {

int cliCheck(const CliOptions&, const std::vector<std::string>&) {
    std::cerr << "tarnwick: check is not available in this build\n";
    return 2;
}

int cliDump(const CliOptions&, const std::string&) {
    std::cerr << "tarnwick: dump is not available in this build\n";
    return 2;
}

int cliRun(const CliOptions&, const std::string&) {
    std::cerr << "tarnwick: run is not available in this build\n";
    return 2;
}

} // namespace tw
