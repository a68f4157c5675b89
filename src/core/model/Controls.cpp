// SPDX-License-Identifier: Apache-2.0
#include "core/model/Controls.h"

#include <array>
#include <charconv>

namespace tw {

namespace {

struct CtlInfo {
    std::string_view name;
    int size;
};

constexpr std::array<CtlInfo, kControlCount> kInfo = {{
#define TW_INFO(name, size) {#name, size},
    TW_CONTROLS(TW_INFO)
#undef TW_INFO
}};

} // namespace

std::string_view ctlName(Ctl c) { return kInfo[static_cast<size_t>(c)].name; }

int ctlArraySize(Ctl c) { return kInfo[static_cast<size_t>(c)].size; }

std::optional<Ctl> ctlFromName(std::string_view name) {
    for (size_t i = 0; i < kInfo.size(); ++i)
        if (kInfo[i].name == name) return static_cast<Ctl>(i);
    return std::nullopt;
}

std::string toString(const CtlId& id) {
    std::string s(ctlName(id.ctl));
    if (id.index >= 0) s.append("(").append(std::to_string(id.index)).append(")");
    return s;
}

std::optional<CtlId> parseCtlId(std::string_view text) {
    auto open = text.find('(');
    auto ctl = ctlFromName(text.substr(0, open));
    if (!ctl) return std::nullopt;
    const int size = ctlArraySize(*ctl);
    if (open == std::string_view::npos) {
        if (size != 0) return std::nullopt;
        return CtlId(*ctl);
    }
    if (size == 0 || text.back() != ')') return std::nullopt;
    auto digits = text.substr(open + 1, text.size() - open - 2);
    int index = -1;
    auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    if (ec != std::errc() || end != digits.data() + digits.size() || index < 0 || index >= size) return std::nullopt;
    return CtlId(*ctl, index);
}

} // namespace tw
