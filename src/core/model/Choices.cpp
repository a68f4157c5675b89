// SPDX-License-Identifier: Apache-2.0
#include "core/model/Choices.h"

namespace tw {

namespace {

using Items = std::vector<ChoiceItem>;

Items numbers(int from, int to) {
    Items v;
    for (int i = from; i <= to; ++i)
        v.push_back({std::to_string(i), std::nullopt});
    return v;
}

} // namespace

std::optional<BentType> bentTypeOf(const std::string& text) {
    if (text == kIntermediate) return BentType::Intermediate;
    if (text == kEndWithBackwall) return BentType::EndWithBackwall;
    if (text == kEndWithoutBackwall) return BentType::EndWithoutBackwall;
    return std::nullopt;
}

const std::vector<ChoiceItem>& choices(Ctl ctl) {
    static const Items none;
    static const Items yesNo = {{"Yes", "0"}, {"No", "1"}};
    static const Items bentTypes = {{kEndWithoutBackwall, "2"}, {kEndWithBackwall, "3"}, {kIntermediate, "1"}};
    static const Items scales = {{"3/8 in/ft", "2"}, {"1/2 in/ft", "1"}, {"1/4 in/ft", "3"}};
    static const Items drawn = {{"Yes", " 0"}, {"No", " 1"}};
    static const Items skew = {{"None", " "}, {"Right", "R"}, {"Left", "L"}};
    static const Items bearing = {{"None", "  "}, {"Dowel Bar", " 1"}, {"Two Anchor Bolts", " 2"}};
    static const Items piles = {{"PSC, 12 IN SQ", " 4"},         {"PSC, 14 IN SQ", " 5"},
                                {"PSC, 16 IN SQ", " 6"},         {"STEEL H, HP 10X42", " 1"},
                                {"STEEL H, HP 12X53", " 2"},     {"STEEL H, HP 14X73", " 3"},
                                {"METAL SHELL, 14 IN OD", " 7"}, {"METAL SHELL, 16 IN OD", " 8"}};
    static const Items stirrups = {{"4", " 4"}, {"5", " 5"}, {"6", " 6"}};
    // Counts the file writes as numbers, and the bottom-of-cap question it does not hold.
    static const Items beams = numbers(1, 20);
    static const Items pileBoxes = numbers(0, 3);
    static const Items batteredPiles = numbers(1, 6);
    static const Items bottomOfCap = {{"Yes", std::nullopt}, {"No", std::nullopt}};
    switch (ctl) {
    case Ctl::cboTybent: return bentTypes;
    case Ctl::cboDrScale: return scales;
    case Ctl::cboNoBeam: return beams;
    case Ctl::cboBSkew: return skew;
    case Ctl::cboBentDrawn: return drawn;
    case Ctl::cboAngleType:
    case Ctl::cboWingParallel:
    case Ctl::cboTPLwinwall:
    case Ctl::cboTPRwingwall:
    case Ctl::cboBatterPile: return yesNo;
    case Ctl::cboBtomCalPI: return bottomOfCap;
    case Ctl::cboWingwallPileBox: return pileBoxes;
    case Ctl::cboBatteredPile: return batteredPiles;
    case Ctl::cboBearingHole: return bearing;
    case Ctl::cboTypeOfPile: return piles;
    case Ctl::cboStrirrups: return stirrups;
    default: return none;
    }
}

std::vector<std::string> choiceTexts(Ctl ctl) {
    std::vector<std::string> v;
    for (const auto& item : choices(ctl))
        v.push_back(item.text);
    return v;
}

std::optional<std::string> codeOf(Ctl ctl, const std::string& text) {
    for (const auto& item : choices(ctl))
        if (item.text == text) return item.code;
    return std::nullopt;
}

std::optional<std::string> textOfCode(Ctl ctl, const std::string& code) {
    for (const auto& item : choices(ctl))
        if (item.code == code) return item.text;
    return std::nullopt;
}

} // namespace tw
