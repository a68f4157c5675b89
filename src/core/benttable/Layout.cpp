#include "core/benttable/Layout.h"

#include "core/App.h"
#include "core/model/Inputs.h"

namespace tw {

namespace {

struct Column {
    const char* heading;
    int width;
};

constexpr Column kLeading[] = {{"Bent Number", 1000}, {"Bottom Left Cap", 1400}, {"Bottom Right Cap", 1400}};

constexpr Column kWithoutBackwall[] = {{"Top Left Wingwall (Front Face)", 2300},
                                       {"Top Right Wingwall (Front Face)", 2300},
                                       {"Top Left Wingwall (End)", 2300},
                                       {"Top Right Wingwall (End)", 2300}};

constexpr Column kWithBackwall[] = {{"Top Left Wingwall (Front Face)", 2300},
                                    {"Top Right Wingwall (Front Face)", 2400},
                                    {"Top Left Wingwall (End)", 2300},
                                    {"Top Right Wingwall (End)", 2300},
                                    {"Top Left Endpost", 2000},
                                    {"Top Right Endpost", 2000},
                                    {"Inside Face Left Endpost", 2200},
                                    {"Centerline of Bent", 2200},
                                    {"Inside Face Right Endpost", 2200}};

constexpr int kStepWidth = 700;

void writeColumn(Grid& g, int c, const std::string& heading, int width) {
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

void layoutColumns(Grid& g, BentType type, std::int16_t beams) {
    for (int c = 0; c < 3; ++c)
        writeColumn(g, c, kLeading[c].heading, kLeading[c].width);
    int extra = 0;
    if (type == BentType::EndWithoutBackwall) extra = 4;
    if (type == BentType::EndWithBackwall) extra = 9;
    g.setCols(add16(add16(3, beams), extra));
    for (int c = 3; c <= beams + 2; ++c)
        writeColumn(g, c, std::to_string(c - 2) + "Step", kStepWidth);
    const Column* cols = type == BentType::EndWithBackwall ? kWithBackwall : kWithoutBackwall;
    for (int k = 0; k < extra; ++k)
        writeColumn(g, beams + 3 + k, cols[k].heading, cols[k].width);
}

const std::vector<int>& endBentFileColumns(bool withBackwall) {
    static const std::vector<int> backwall = {3, 5, 4, 6, 9, 10, 11, 7, 8};
    static const std::vector<int> noBackwall = {3, 5, 4, 6};
    return withBackwall ? backwall : noBackwall;
}

void relayoutColumns(App& app) {
    auto type = bentTypeOf(app.text(Ctl::cboTybent));
    if (!type) return;
    app.setVisible(Ctl::MSFlexGrid1, true);
    layoutColumns(app.grid, *type, static_cast<std::int16_t>(beamCount(app)));
}

} // namespace tw
