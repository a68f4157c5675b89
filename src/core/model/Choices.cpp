#include "core/model/Choices.h"

namespace tw {

namespace {
std::vector<std::string> numbers(int from, int to) {
    std::vector<std::string> v;
    for (int i = from; i <= to; ++i)
        v.push_back(std::to_string(i));
    return v;
}
} // namespace

std::optional<BentType> bentTypeOf(const std::string& text) {
    if (text == kIntermediate) return BentType::Intermediate;
    if (text == kEndWithBackwall) return BentType::EndWithBackwall;
    if (text == kEndWithoutBackwall) return BentType::EndWithoutBackwall;
    return std::nullopt;
}

const std::vector<std::string>& choiceItems(Ctl ctl) {
    static const std::vector<std::string> none;
    static const std::vector<std::string> yesNo = {"Yes", "No"};
    static const std::vector<std::string> bentTypes = {kEndWithoutBackwall, kEndWithBackwall, kIntermediate};
    static const std::vector<std::string> scales = {"3/8 in/ft", "1/2 in/ft", "1/4 in/ft"};
    static const std::vector<std::string> beams = numbers(1, 20);
    static const std::vector<std::string> skew = {"None", "Right", "Left"};
    static const std::vector<std::string> pileBoxes = numbers(0, 3);
    static const std::vector<std::string> batteredPiles = numbers(1, 6);
    static const std::vector<std::string> bearing = {"None", "Dowel Bar", "Two Anchor Bolts"};
    static const std::vector<std::string> piles = {"PSC, 12 IN SQ",         "PSC, 14 IN SQ",        "PSC, 16 IN SQ",
                                                   "STEEL H, HP 10X42",     "STEEL H, HP 12X53",    "STEEL H, HP 14X73",
                                                   "METAL SHELL, 14 IN OD", "METAL SHELL, 16 IN OD"};
    static const std::vector<std::string> stirrups = {"4", "5", "6"};
    switch (ctl) {
    case Ctl::cboTybent: return bentTypes;
    case Ctl::cboDrScale: return scales;
    case Ctl::cboNoBeam: return beams;
    case Ctl::cboBSkew: return skew;
    case Ctl::cboAngleType:
    case Ctl::cboBentDrawn:
    case Ctl::cboWingParallel:
    case Ctl::cboTPLwinwall:
    case Ctl::cboTPRwingwall:
    case Ctl::cboBatterPile:
    case Ctl::cboBtomCalPI: return yesNo;
    case Ctl::cboWingwallPileBox: return pileBoxes;
    case Ctl::cboBatteredPile: return batteredPiles;
    case Ctl::cboBearingHole: return bearing;
    case Ctl::cboTypeOfPile: return piles;
    case Ctl::cboStrirrups: return stirrups;
    default: return none;
    }
}

} // namespace tw
