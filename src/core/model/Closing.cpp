// SPDX-License-Identifier: Apache-2.0
#include "core/model/Closing.h"

#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Project.h"

namespace tw {

namespace {

std::vector<CtlId> items(Ctl c, int from, int to) {
    std::vector<CtlId> v;
    for (int i = from; i <= to; ++i)
        v.emplace_back(c, i);
    return v;
}

} // namespace

std::vector<ClosingFamily> closingFamilies(const Project& p) {
    std::vector<ClosingFamily> families;
    const int beams = p.beams();
    // The cap steps close on the last of their own rows, which moves with the number of beams.
    if (beams >= 1) families.push_back({CtlId(Ctl::txtCapStep, beams - 1), items(Ctl::txtCapStep, 0, beams - 2)});
    families.push_back({CtlId(Ctl::txtCenterline, 20), items(Ctl::txtCenterline, 0, beams - 1)});
    const int piles = static_cast<int>(p.leading(Ctl::cboBatteredPile));
    families.push_back({CtlId(Ctl::txtBatterPile, 6), items(Ctl::txtBatterPile, 0, piles - 1)});
    return families;
}

std::optional<float> closingRest(const Project& p, const ClosingFamily& f) {
    if (p.text(Ctl::txtCapLength).empty()) return std::nullopt;
    float sum = 0.0f;
    for (const auto& id : f.entered)
        sum += static_cast<float>(p.leading(id));
    return static_cast<float>(p.leading(Ctl::txtCapLength)) - sum;
}

std::string closingText(float rest) { return formatField(4, 4, singleToText(rest)); }

std::string closingLabel(const CtlId& id) {
    switch (id.ctl) {
    case Ctl::txtCapStep: return inputLabel(id) + " (the last)";
    case Ctl::txtCenterline: return "Centerline Distance, last beam to right end";
    default: return "Battered Pile Spacing, distance left";
    }
}
std::vector<StaleClosing> staleClosings(const Project& p) {
    std::vector<StaleClosing> stale;
    for (const auto& f : closingFamilies(p)) {
        const auto rest = closingRest(p, f);
        if (!rest) continue;
        const std::string now = closingText(*rest);
        if (p.text(f.closing) != now) stale.push_back({f.closing, p.text(f.closing), now});
    }
    return stale;
}

std::vector<std::string> closingMismatches(const Project& p) {
    std::vector<std::string> lines;
    // A cap length that is no number is told of already; what it leaves means nothing.
    if (!isNumeric(p.text(Ctl::txtCapLength))) return lines;
    for (const auto& c : staleClosings(p))
        if (!c.holds.empty())
            lines.push_back(closingLabel(c.field) + " holds " + c.holds + " but the cap length " +
                            p.text(Ctl::txtCapLength) + " leaves " + c.now +
                            ": the closing values do not match the cap length (the form brings them up to date "
                            "when the tab changes)");
    return lines;
}

} // namespace tw
