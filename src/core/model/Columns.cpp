// SPDX-License-Identifier: Apache-2.0
#include "core/model/Columns.h"

#include "core/Errors.h"
#include "core/model/BentTable.h"

#include <cstdint>
#include <stdexcept>

namespace tw {

namespace {

// Each column with the entry field that feeds it (a level wingwall top fills
// both of its side's columns from its one field; the sloped fields stand here).
struct Column {
    const char* heading;
    int width;
    Ctl source;
};

constexpr Column kLeading[] = {{"Bent Number", 1000, Ctl::txtBentNoPI},
                               {"Bottom Left Cap", 1400, Ctl::txtBtLCapPI},
                               {"Bottom Right Cap", 1400, Ctl::txtBtRCapPI}};

constexpr Column kWithoutBackwall[] = {{"Top Left Wingwall (Front Face)", 2300, Ctl::txtElevationTopLeftfront},
                                       {"Top Right Wingwall (Front Face)", 2300, Ctl::txtElevationTopRighFront},
                                       {"Top Left Wingwall (End)", 2300, Ctl::txtElevationTopLeftEnd},
                                       {"Top Right Wingwall (End)", 2300, Ctl::txtElevationTopRighEnd}};

constexpr Column kWithBackwall[] = {{"Top Left Wingwall (Front Face)", 2300, Ctl::txtElevationTopLeftfront},
                                    {"Top Right Wingwall (Front Face)", 2400, Ctl::txtElevationTopRighFront},
                                    {"Top Left Wingwall (End)", 2300, Ctl::txtElevationTopLeftEnd},
                                    {"Top Right Wingwall (End)", 2300, Ctl::txtElevationTopRighEnd},
                                    {"Top Left Endpost", 2000, Ctl::txtTopLeftEndPost},
                                    {"Top Right Endpost", 2000, Ctl::txtTopRightEndPost},
                                    {"Inside Face Left Endpost", 2200, Ctl::txtTopLeftBackwall},
                                    {"Centerline of Bent", 2200, Ctl::txtTopCentBackwall},
                                    {"Inside Face Right Endpost", 2200, Ctl::txtTopRightBackwall}};

constexpr int kStepWidth = 700;

void writeColumn(BentTable& g, int c, const std::string& heading, int width) {
    g.setColWidth(c, width);
    g.setColCentred(c, true);
    g.setCell(0, c, heading);
}

// The old layout counted in 16-bit integers; a count beyond them is an overflow.
std::int16_t add16(int a, int b) {
    int r = a + b;
    if (r > INT16_MAX || r < INT16_MIN) throw RuntimeError(err::kOverflow, "Overflow");
    return static_cast<std::int16_t>(r);
}

} // namespace

namespace {

int extraColumns(BentType type) {
    return type == BentType::EndWithBackwall ? 9 : type == BentType::EndWithoutBackwall ? 4 : 0;
}

} // namespace

int columnCount(BentType type, int beams) { return 3 + beams + extraColumns(type); }

void layoutColumns(BentTable& g, BentType type, std::int16_t beams) {
    for (int c = 0; c < 3; ++c)
        writeColumn(g, c, kLeading[c].heading, kLeading[c].width);
    const int extra = extraColumns(type);
    g.setCols(add16(add16(3, beams), extra));
    for (int c = 3; c <= beams + 2; ++c)
        writeColumn(g, c, std::to_string(c - 2) + "Step", kStepWidth);
    const Column* cols = type == BentType::EndWithBackwall ? kWithBackwall : kWithoutBackwall;
    for (int k = 0; k < extra; ++k)
        writeColumn(g, beams + 3 + k, cols[k].heading, cols[k].width);
}

CtlId columnSource(BentType type, int beams, int column) {
    if (column < 3) return kLeading[column].source;
    if (column < beams + 3) return CtlId(Ctl::txtEStepPI, column - 3);
    const int extra = column - beams - 3;
    if (type == BentType::EndWithBackwall && extra < 9) return kWithBackwall[extra].source;
    if (type == BentType::EndWithoutBackwall && extra < 4) return kWithoutBackwall[extra].source;
    throw std::out_of_range("no bent-table column " + std::to_string(column));
}

const std::vector<int>& endBentFileColumns(bool withBackwall) {
    static const std::vector<int> backwall = {3, 5, 4, 6, 9, 10, 11, 7, 8};
    static const std::vector<int> noBackwall = {3, 5, 4, 6};
    return withBackwall ? backwall : noBackwall;
}

} // namespace tw
