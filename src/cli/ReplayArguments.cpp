// SPDX-License-Identifier: Apache-2.0
#include "cli/ReplayArguments.h"

#include <utility>

namespace tw {

std::optional<std::size_t> mostArguments(std::string_view verb) {
    static constexpr std::pair<std::string_view, std::size_t> kMost[] = {
        {"leave", 1},    {"click", 1},
        {"dblclick", 1}, {"toolbar", 1},
        {"tab", 1},      {"select", 2},
        {"answer", 1},   {"printer", 1},
        {"show", 1},     {"state", 1},
        {"focus", 0},    {"grid", 0},
        {"counter", 0},  {"register", 0},
        {"setting", 0},  {"undo", 0},
        {"redo", 0},     {"modified", 0},
        {"status", 0},   {"copy", 0},
        {"recent", 0},   {"bring-up-to-date", 0},
    };
    for (const auto& [name, most] : kMost)
        if (name == verb) return most;
    return std::nullopt;
}

} // namespace tw
