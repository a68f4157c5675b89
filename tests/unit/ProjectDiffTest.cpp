// SPDX-License-Identifier: Apache-2.0
// What `tarnwick diff` and File > Compare With list: each input by its name
// with both values as a drawing reads them, an angle on one line, a bent
// added or removed in full, a changed bent cell by cell.
#include "FakePorts.h"
#include "TestFiles.h"

#include "core/app/ProjectDiff.h"
#include "core/form/FileCommands.h"
#include "core/model/Numeric.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tw {
namespace {

struct Pair {
    test::Loaded before, after;
    explicit Pair(const char* sample) {
        const std::string bytes = test::slurp(std::string(TW_SOURCE_DIR) + "/samples/" + sample);
        parseProject(*before, bytes);
        parseProject(*after, bytes);
    }
    std::vector<std::string> lines(DiffOptions o = {}) const {
        return projectDifferences(before.session->project(), after.session->project(), o);
    }
};

bool has(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

std::string all(const std::vector<std::string>& lines) {
    std::string out;
    for (const auto& l : lines)
        out += l + "\n";
    return out;
}

TEST(ProjectDiff, InputsReadByNameInTheUnitsChosen) {
    Pair p("twelve-beams.ebnt");
    EXPECT_TRUE(p.lines().empty());
    p.after->setText(Ctl::txtCapLength, "82.5000");
    p.after->setText(Ctl::txtCapWidth, "");
    p.after->setText(CtlId(Ctl::txtCenterline, 0), "4.2");
    p.after->setText(CtlId(Ctl::txtProjectInfo, 1), "SPAN \"A\"");
    p.after->setComboText(Ctl::cboBSkew, "Left");
    auto lines = p.lines();
    EXPECT_TRUE(has(lines, "Cap length: 80'-0\" -> 82'-6\"")) << all(lines);
    EXPECT_TRUE(has(lines, "Cap width: 3'-0\" -> (blank)")) << all(lines);
    EXPECT_TRUE(has(lines, "Centerline distance 1: 4'-3\" -> 4'-2 3/8\"")) << all(lines);
    EXPECT_TRUE(
        has(lines, "Project information line 2: \"END BENT 1 - TWELVE BEAMS, SIX BENTS\" -> \"SPAN \\\"A\\\"\""))
        << all(lines);
    EXPECT_TRUE(has(lines, "Skew: None -> Left")) << all(lines);
    EXPECT_EQ(lines.size(), 5u) << all(lines);
    DiffOptions decimal;
    decimal.units = LengthUnits::DecimalFeet;
    decimal.names = true;
    lines = p.lines(decimal);
    EXPECT_TRUE(has(lines, "Cap length (txtCapLength): 80.00' -> 82.50'")) << all(lines);
    EXPECT_TRUE(has(lines, "Centerline distance 1 (txtCenterline(0)): 4.25' -> 4.20'")) << all(lines);
    // Texts that read alike are told apart as typed; what is no number is shown as it stands.
    Pair q("twelve-beams.ebnt");
    q.after->setText(Ctl::txtCapLength, "80");
    q.after->setText(Ctl::txtCapDepth, "x2");
    lines = q.lines();
    EXPECT_TRUE(has(lines, "Cap length: \"80.0000\" -> \"80\"")) << all(lines);
    EXPECT_TRUE(has(lines, "Cap depth: 2'-0\" -> \"x2\"")) << all(lines);
}

TEST(ProjectDiff, AClosingValueIsNamedByWhatItCloses) {
    test::Loaded a, b;
    parseProject(*a, test::slurp(std::string(TW_SOURCE_DIR) + "/samples/end-with-backwall.ebnt"));
    parseProject(*b, test::slurp(std::string(TW_SOURCE_DIR) + "/samples/twelve-beams.ebnt"));
    const auto lines = projectDifferences(a.session->project(), b.session->project());
    EXPECT_TRUE(has(lines, "Centerline distance, last beam to right end: 5'-0\" -> 4'-3\"")) << all(lines);
    EXPECT_TRUE(has(lines, "Centerline distance 2: 9'-6\" -> 6'-6\"")) << all(lines);
}

TEST(ProjectDiff, AnAngleIsOneLine) {
    Pair p("end-with-backwall.ebnt");
    p.after->setText(CtlId(Ctl::txtBeamangleM, 1), "31");
    p.after->setText(CtlId(Ctl::txtBeamangleS, 1), "59.95");
    p.after->setText(CtlId(Ctl::txtWinLAngle, 0), "81");
    auto lines = p.lines();
    ASSERT_EQ(lines.size(), 2u) << all(lines);
    EXPECT_EQ(lines[0], "Beam angle 2: 75\xC2\xB0"
                        "30'15.5\" -> 75\xC2\xB0"
                        "32'00\"");
    EXPECT_EQ(lines[1], "Left wingwall angle: 80\xC2\xB0"
                        "15'30\" -> 81\xC2\xB0"
                        "15'30\"");
    DiffOptions named;
    named.names = true;
    lines = p.lines(named);
    EXPECT_EQ(lines[0].rfind("Beam angle 2 (txtBeamangleH(1) txtBeamangleM(1) txtBeamangleS(1)): ", 0), 0u) << lines[0];
}

TEST(ProjectDiff, BentsAddedAndRemovedInFullChangedCellByCell) {
    Pair p("intermediate.ebnt");
    const BentTable table = p.after->project().table();
    ASSERT_GE(table.rows(), 2);
    p.after->changeTable([](BentTable& t) {
        t.setCell(1, 3, "99.95");
        t.setCell(1, 1, "98.5");
        t.addItem("7\t95\t\t100.5\t100.5\t100.5\t100.5\t100.5\t");
    });
    auto lines = p.lines();
    const std::string number = trim(table.cell(1, 0));
    EXPECT_TRUE(has(lines, "Bent 7 added: Bottom Left Cap EL. 95.00, Bottom Right Cap (blank), 1Step EL. 100.50, "
                           "2Step EL. 100.50, 3Step EL. 100.50, 4Step EL. 100.50, 5Step EL. 100.50"))
        << all(lines);
    EXPECT_TRUE(has(lines, "Bent " + number + ", 1Step: " + elevationText(table.cell(1, 3)) + " -> EL. 99.95"))
        << all(lines);
    EXPECT_TRUE(has(lines, "Bent " + number + ", Bottom Left Cap: (blank) -> EL. 98.50")) << all(lines);
    // The other way round the new bent is removed, with every cell it had.
    lines = projectDifferences(p.after->project(), p.before->project());
    EXPECT_TRUE(has(lines, "Bent 7 removed: Bottom Left Cap EL. 95.00, Bottom Right Cap (blank), 1Step EL. 100.50, "
                           "2Step EL. 100.50, 3Step EL. 100.50, 4Step EL. 100.50, 5Step EL. 100.50"))
        << all(lines);
}

} // namespace
} // namespace tw
