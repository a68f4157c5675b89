#include "core/inputfile/Codes.h"

namespace tw {

const std::vector<std::pair<std::string, std::string>>& choiceCodes(Ctl ctl) {
    using Table = std::vector<std::pair<std::string, std::string>>;
    static const Table none;
    static const Table scale = {{"1/2 in/ft", "1"}, {"3/8 in/ft", "2"}, {"1/4 in/ft", "3"}};
    static const Table type = {
        {"Pile Intermediate Bent", "1"}, {"Pile End Bent without Backwall", "2"}, {"Pile End Bent with Backwall", "3"}};
    static const Table drawn = {{"Yes", " 0"}, {"No", " 1"}};
    static const Table skew = {{"None", " "}, {"Right", "R"}, {"Left", "L"}};
    static const Table yesNo = {{"Yes", "0"}, {"No", "1"}};
    static const Table bearing = {{"None", "  "}, {"Dowel Bar", " 1"}, {"Two Anchor Bolts", " 2"}};
    static const Table pile = {{"STEEL H, HP 10X42", " 1"},     {"STEEL H, HP 12X53", " 2"},
                               {"STEEL H, HP 14X73", " 3"},     {"PSC, 12 IN SQ", " 4"},
                               {"PSC, 14 IN SQ", " 5"},         {"PSC, 16 IN SQ", " 6"},
                               {"METAL SHELL, 14 IN OD", " 7"}, {"METAL SHELL, 16 IN OD", " 8"}};
    static const Table stirrups = {{"4", " 4"}, {"5", " 5"}, {"6", " 6"}};
    switch (ctl) {
    case Ctl::cboDrScale: return scale;
    case Ctl::cboTybent: return type;
    case Ctl::cboBentDrawn: return drawn;
    case Ctl::cboBSkew: return skew;
    case Ctl::cboAngleType:
    case Ctl::cboWingParallel:
    case Ctl::cboTPLwinwall:
    case Ctl::cboTPRwingwall:
    case Ctl::cboBatterPile: return yesNo;
    case Ctl::cboBearingHole: return bearing;
    case Ctl::cboTypeOfPile: return pile;
    case Ctl::cboStrirrups: return stirrups;
    default: return none;
    }
}

std::optional<std::string> codeOf(Ctl ctl, const std::string& text) {
    for (const auto& [t, c] : choiceCodes(ctl))
        if (t == text) return c;
    return std::nullopt;
}

std::optional<std::string> textOfCode(Ctl ctl, const std::string& code) {
    for (const auto& [t, c] : choiceCodes(ctl))
        if (c == code) return t;
    return std::nullopt;
}

const std::vector<int>& endBentColumnOffsets(bool withBackwall) {
    static const std::vector<int> backwall = {3, 5, 4, 6, 9, 10, 11, 7, 8};
    static const std::vector<int> noBackwall = {3, 5, 4, 6};
    return withBackwall ? backwall : noBackwall;
}

} // namespace tw
