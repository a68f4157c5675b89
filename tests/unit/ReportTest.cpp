// SPDX-License-Identifier: Apache-2.0
// The checker's report, made by `tarnwick report` and read back with
// pdftotext: what applies is in it, with its value and unit, and what the
// form hides is not.
#include "FakePorts.h"
#include "LargestProject.h"
#include "RunTarnwick.h"
#include "TestFiles.h"

#include "cli/QuietProject.h"
#include "core/form/FileCommands.h"
#include "core/output/Report.h"
#include "platform/ProjectFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <sys/stat.h>

namespace tw {
namespace {

using test::freshFolder;
using test::runTarnwick;

// What a poppler tool prints; empty when it cannot run.
std::string poppler(const std::string& command) {
    std::string out;
    if (FILE* p = popen(command.c_str(), "r")) {
        char buf[4096];
        for (std::size_t n; (n = fread(buf, 1, sizeof buf, p)) > 0;)
            out.append(buf, n);
        pclose(p);
    }
    return out;
}

std::string rawPdfText(const std::filesystem::path& pdf, int page) {
    return poppler("pdftotext -layout -f " + std::to_string(page) + " -l " + std::to_string(page) + " '" +
                   pdf.string() + "' - 2>/dev/null");
}

// The text of a PDF as laid out, every run of blanks and line ends one blank, with a blank at each end.
std::string pdfText(const std::filesystem::path& pdf, int page = 0) {
    const std::string pages = page > 0 ? " -f " + std::to_string(page) + " -l " + std::to_string(page) : "";
    const std::string raw = poppler("pdftotext -layout" + pages + " '" + pdf.string() + "' - 2>/dev/null");
    return " " + std::regex_replace(raw, std::regex("\\s+"), " ") + " ";
}

int pdfPages(const std::filesystem::path& pdf) {
    std::smatch m;
    const std::string info = poppler("pdfinfo '" + pdf.string() + "' 2>/dev/null");
    return std::regex_search(info, m, std::regex("Pages:\\s+(\\d+)")) ? std::stoi(m[1]) : -1;
}

std::string pageSize(const std::filesystem::path& pdf) {
    std::smatch m;
    const std::string info = poppler("pdfinfo '" + pdf.string() + "' 2>/dev/null");
    return std::regex_search(info, m, std::regex("Page size:[^(\\n]*\\((\\w+)\\)")) ? std::string(m[1]) : "";
}

bool haveTools() { return !poppler("pdftotext -v 2>&1").empty(); }

Report reportOf(const std::string& file) {
    const ProjectRead read = readProjectFile(file);
    EXPECT_TRUE(read.ok()) << file;
    return buildReport(read.project, file);
}

// Where the report and the form disagree on what is shown, or on a prompt
// the form shows in a label: empty when they agree.
std::string disagreement(const Report& r, const Session& s) {
    std::ostringstream out;
    const std::map<std::string, Ctl> frames = {{"General", Ctl::Frame1},
                                               {"Cap Dimensions", Ctl::Frame2},
                                               {"Fillet Dimensions", Ctl::Frame3},
                                               {"Cap Steps", Ctl::Frame4},
                                               {"Wingwall Dimensions and Angles", Ctl::Frame5},
                                               {"Pile Box Dimension", Ctl::Frame6},
                                               {"Backwall and End Post Dimension", Ctl::Frame7},
                                               {"Battered Piles", Ctl::Frame18}};
    for (const auto& sec : r.sections) {
        bool any = false;
        for (const auto& row : sec.rows) {
            if (row.shown != s.ctl(row.field).visible)
                out << sec.title << " / " << toString(row.field) << ": report " << row.shown << ", form "
                    << s.ctl(row.field).visible << "\n";
            any = any || s.ctl(row.field).visible;
        }
        const auto frame = frames.find(sec.title);
        const bool formShows = any && (frame == frames.end() || s.ctl(frame->second).visible);
        if (sec.shown != formShows) out << sec.title << ": report " << sec.shown << ", form " << formShows << "\n";
    }
    std::string capPrompt = s.ctl(Ctl::lblCCapLength).caption;
    if (s.ctl(Ctl::lblCCapLength1).visible) capPrompt += " " + s.ctl(Ctl::lblCCapLength1).caption;
    const std::pair<CtlId, std::string> labelled[] = {
        {Ctl::txtCapLength, capPrompt},
        {Ctl::cboWingParallel, s.ctl(Ctl::lblCCWingPwall).caption},
        {Ctl::txtPileBoxDistance2, s.ctl(Ctl::lblPileD2).caption},
        {CtlId(Ctl::txtWinLAngle, 0), s.ctl(Ctl::lblWingWallLAngle).caption},
        {CtlId(Ctl::txtWinRAngle, 0), s.ctl(Ctl::lblWingWallRAngle).caption}};
    for (const auto& [field, prompt] : labelled)
        for (const auto& sec : r.sections)
            for (const auto& row : sec.rows)
                if (row.field == field && row.prompt != prompt)
                    out << toString(field) << ": report \"" << row.prompt << "\", form \"" << prompt << "\"\n";
    return out.str();
}

// One line of the inputs as the report shows it: prompt, value and unit.
std::string lineOf(const ReportRow& row) {
    std::string line = " " + row.prompt;
    for (const auto* part : {&row.value, &row.unit})
        if (!part->empty()) line += " " + *part;
    return std::regex_replace(line + " ", std::regex("\\s+"), " ");
}

TEST(Report, EachSampleHasEveryInputThatAppliesAndNoneOfAHiddenSection) {
    if (!haveTools()) GTEST_SKIP() << "poppler-utils is not installed";
    const auto dir = freshFolder("tarnwick-report-");
    const std::string samples = TW_SOURCE_DIR "/samples/";
    int reported = 0;
    for (const auto& entry : std::filesystem::directory_iterator(samples)) {
        if (entry.path().extension() != ".ebnt") continue;
        ++reported;
        const std::string name = entry.path().stem().string();
        SCOPED_TRACE(name);
        const std::string file = entry.path().string();
        const auto pdf = dir / (name + ".pdf");
        const auto ran = runTarnwick({"report", file, pdf.string()}, dir);
        ASSERT_EQ(ran.status, 0) << ran.err;
        const std::string text = pdfText(pdf);
        const Report r = reportOf(file);
        for (const auto& line : r.projectInfo)
            EXPECT_NE(text.find(std::regex_replace(" " + line + " ", std::regex("\\s+"), " ")), std::string::npos);
        EXPECT_NE(text.find(name + ".ebnt"), std::string::npos) << "the path and the footer";
        EXPECT_NE(text.find(" Checked by ______ Date ______ "), std::string::npos);
        EXPECT_NE(text.find(" page 1 of "), std::string::npos);
        int hidden = 0;
        std::set<std::string> shownPrompts; // rows of one angle for all beams share their prompt
        for (const auto& sec : r.sections)
            for (const auto& row : sec.rows)
                if (sec.shown && row.shown) shownPrompts.insert(row.prompt);
        for (const auto& sec : r.sections) {
            EXPECT_EQ(text.find(" " + sec.title + " ") != std::string::npos, sec.shown) << sec.title;
            for (const auto& row : sec.rows) {
                if (sec.shown && row.shown) {
                    EXPECT_NE(text.find(lineOf(row)), std::string::npos) << lineOf(row);
                } else if (!shownPrompts.count(row.prompt)) {
                    EXPECT_EQ(text.find(" " + row.prompt + " "), std::string::npos) << "hidden: " << row.prompt;
                    ++hidden;
                }
            }
        }
        EXPECT_GT(hidden, 0) << "every sample leaves something out";
        for (const auto& row : r.bents)
            EXPECT_NE(text.find(" Bent " + row[0] + " "), std::string::npos) << "the elevation of bent " << row[0];
    }
    EXPECT_GE(reported, 4);
    // What the form shows for each bent type, told independently of the report.
    const std::string intermediate = pdfText(dir / "intermediate.pdf");
    const std::string backwall = pdfText(dir / "end-with-backwall.pdf");
    const std::string without = pdfText(dir / "end-without-backwall.pdf");
    for (const char* endOnly :
         {" Enter the wingwall length ", " Fillet Dimensions ", " Is the top left wingwall level? "}) {
        EXPECT_EQ(intermediate.find(endOnly), std::string::npos) << endOnly;
        EXPECT_NE(backwall.find(endOnly), std::string::npos) << endOnly;
    }
    EXPECT_NE(backwall.find(" Enter the width of the end post "), std::string::npos);
    EXPECT_EQ(without.find(" Enter the width of the end post "), std::string::npos);
}

// The report is made from the project alone; what it shows is what the
// form shows once the file is read, for every sample and for each answer
// to the questions that show or hide rows, chosen in the order a file is read.
TEST(Report, ShowsWhatTheFormShowsWithoutAForm) {
    for (const auto& entry : std::filesystem::directory_iterator(TW_SOURCE_DIR "/samples/")) {
        if (entry.path().extension() != ".ebnt") continue;
        QuietProject p(TW_PROGRAM_DIR);
        ASSERT_TRUE(p.read(entry.path().string()));
        EXPECT_EQ(disagreement(buildReport(p.app.project(), ""), p.app.session()), "") << entry.path();
    }
    test::Program program;
    App& app = *program;
    const auto& types = app.session().ctl(Ctl::cboTybent).items;
    auto typeAt = [&](const char* name) {
        return static_cast<int>(std::find(types.begin(), types.end(), name) - types.begin());
    };
    const int kIntermediate = typeAt("Pile Intermediate Bent"),
              kEndBentWithBackwall = typeAt("Pile End Bent with Backwall");
    ASSERT_LT(std::max(kIntermediate, kEndBentWithBackwall), static_cast<int>(types.size()));
    auto count = [&](Ctl c) { return static_cast<int>(app.session().ctl(c).items.size()); };
    int tried = 0;
    for (int type = 0; type < count(Ctl::cboTybent); ++type)
        for (int boxes = 0; boxes < count(Ctl::cboWingwallPileBox); ++boxes)
            for (int parallel = 0; parallel < count(Ctl::cboWingParallel); ++parallel)
                for (int batter = 0; batter < count(Ctl::cboBatterPile); ++batter) {
                    const int variant = tried++;
                    // An end bent's questions are answered while the bent is
                    // one: an intermediate bent's form does not ask them, and
                    // the report leaves out what does not apply to its type.
                    app.actions.choose(Ctl::cboTybent, kEndBentWithBackwall);
                    auto endBentAnswers = [&] {
                        app.actions.choose(Ctl::cboWingParallel, parallel);
                        app.actions.choose(Ctl::cboWingwallPileBox, boxes);
                        app.actions.choose(Ctl::cboBatterPile, batter);
                        app.actions.choose(Ctl::cboBatteredPile, variant % count(Ctl::cboBatteredPile));
                    };
                    if (type == kIntermediate) endBentAnswers();
                    app.actions.choose(Ctl::cboTybent, type);
                    app.actions.choose(Ctl::cboNoBeam, variant % count(Ctl::cboNoBeam));
                    app.actions.choose(Ctl::cboAngleType, variant % count(Ctl::cboAngleType));
                    if (type != kIntermediate) endBentAnswers();
                    EXPECT_EQ(disagreement(buildReport(app.project(), ""), app.session()), "")
                        << app.session().text(Ctl::cboTybent) << ", " << app.project().beams()
                        << " beams, angles alike " << app.session().text(Ctl::cboAngleType) << ", parallel "
                        << app.session().text(Ctl::cboWingParallel) << ", boxes "
                        << app.session().text(Ctl::cboWingwallPileBox) << ", battered "
                        << app.session().text(Ctl::cboBatterPile) << " " << app.session().text(Ctl::cboBatteredPile);
                }
    EXPECT_GE(tried, 3 * 4 * 2 * 2);
}

TEST(Report, TheLargestProjectSplitsItsTableAndDrawsEveryBentOnTheLocalesPaper) {
    if (!haveTools()) GTEST_SKIP() << "poppler-utils is not installed";
    const auto dir = freshFolder("tarnwick-report-");
    const std::string file = (dir / "largest.ebnt").string();
    {
        test::Loaded s;
        test::fillLargestProject(*s);
        ASSERT_TRUE(writeInputFile(*s, file));
    }
    const char* before = std::getenv("LC_ALL");
    const std::string saved = before ? before : "";
    struct Paper {
        const char* locale;
        const char* size;
    };
    // The inputs, the bent table in parts as wide as the paper allows, the
    // plan and 33 pages of three elevations; how many parts and pages the
    // text takes depends on the paper and on the font the machine has.
    for (const Paper& paper : {Paper{"en_US.UTF-8", "letter"}, Paper{"de_DE.UTF-8", "A4"}}) {
        SCOPED_TRACE(paper.locale);
        setenv("LC_ALL", paper.locale, 1);
        const auto pdf = dir / (std::string(paper.size) + ".pdf");
        const auto ran = runTarnwick({"report", file, pdf.string()}, dir);
        ASSERT_EQ(ran.status, 0) << ran.err;
        EXPECT_EQ(pageSize(pdf), paper.size);
        const int pages = pdfPages(pdf);
        // Each part of the split table lists every bent, its rows led by the bent number.
        std::map<std::string, std::set<int>> parts;
        int partsSaid = 0;
        for (int page = 1; page <= pages; ++page) {
            const std::string text = pdfText(pdf, page);
            EXPECT_NE(text.find(" page " + std::to_string(page) + " of " + std::to_string(pages) + " "),
                      std::string::npos);
            std::smatch part;
            if (!std::regex_search(text, part, std::regex("Bent Table \\(part (\\d+) of (\\d+)\\)"))) continue;
            partsSaid = std::stoi(part[2]);
            std::istringstream lines(rawPdfText(pdf, page));
            for (std::string line; std::getline(lines, line);) {
                std::smatch m;
                if (std::regex_search(line, m, std::regex("^\\s*(\\d+)\\s+\\d+\\.\\d\\d\\b")))
                    parts[part[1]].insert(std::stoi(m[1]));
            }
        }
        ASSERT_GE(partsSaid, 2) << "32 columns do not fit across one page";
        ASSERT_EQ(parts.size(), static_cast<std::size_t>(partsSaid));
        for (const auto& [part, numbers] : parts) {
            EXPECT_EQ(numbers.size(), 99u) << "part " << part;
            EXPECT_EQ(*numbers.begin(), 1) << "part " << part;
            EXPECT_EQ(*numbers.rbegin(), 99) << "part " << part;
        }
        // Title and inputs, every part at least a page of 99 rows, the plan, 99 elevations three to a page.
        EXPECT_GE(pages, 1 + 2 * partsSaid + 1 + 33);
        EXPECT_LE(pages, 4 + 3 * partsSaid + 1 + 33);
    }
    if (before)
        setenv("LC_ALL", saved.c_str(), 1);
    else
        unsetenv("LC_ALL");
}

// What a checker signs: the table's headings with their unit, every drawing
// with its units and a scale bar, angles in the drawings' one form, lengths in
// the units asked for.
TEST(Report, TheTableAndEveryDrawingSayTheirUnits) {
    if (!haveTools()) GTEST_SKIP() << "poppler-utils is not installed";
    const auto dir = freshFolder("tarnwick-report-");
    const std::string sample = TW_SOURCE_DIR "/samples/end-with-backwall.ebnt";
    const auto pdf = dir / "feet-inches.pdf";
    auto ran = runTarnwick({"report", sample, pdf.string()}, dir);
    ASSERT_EQ(ran.status, 0) << ran.err;
    const std::string text = pdfText(pdf);
    const Report r = reportOf(sample);
    auto count = [](const std::string& in, const std::string& what) {
        int n = 0;
        for (auto at = in.find(what); at != std::string::npos; at = in.find(what, at + 1))
            ++n;
        return n;
    };
    // The plan and each bent's elevation.
    EXPECT_EQ(count(text, " Lengths in feet and inches "), 1 + static_cast<int>(r.bents.size()));
    EXPECT_GE(count(text, "(feet)"), static_cast<int>(r.headings.size()) - 1) << "a unit under every heading";
    // Angles of the inputs as the drawings write them; lengths of the inputs as typed.
    EXPECT_NE(text.find("75\xC2\xB0"
                        "30'15.5\""),
              std::string::npos);
    EXPECT_EQ(text.find("75\xC2\xB0 30' 15.5''"), std::string::npos);
    EXPECT_NE(text.find(" 38.0000 feet "), std::string::npos);
    EXPECT_NE(text.find("38'-0\""), std::string::npos) << "the drawings' lengths";
    // Decimal feet when asked for; a unit it does not know is refused.
    const auto decimal = dir / "decimal.pdf";
    ran = runTarnwick({"report", "--units", "decimal-feet", sample, decimal.string()}, dir);
    ASSERT_EQ(ran.status, 0) << ran.err;
    const std::string d = pdfText(decimal);
    EXPECT_EQ(count(d, " Lengths in decimal feet "), 1 + static_cast<int>(r.bents.size()));
    EXPECT_NE(d.find("38.00'"), std::string::npos);
    EXPECT_EQ(d.find("38'-0\""), std::string::npos);
    ran = runTarnwick({"report", "--units", "metres", sample, (dir / "m.pdf").string()}, dir);
    EXPECT_EQ(ran.status, 2);
    EXPECT_FALSE(std::filesystem::exists(dir / "m.pdf"));
}

TEST(Report, AnOutputThatCannotBeWrittenFailsAndLeavesNoFile) {
    const auto dir = freshFolder("tarnwick-report-");
    const std::string sample = TW_SOURCE_DIR "/samples/intermediate.ebnt";
    std::vector<std::filesystem::path> outs = {dir / "no such folder" / "report.pdf"};
    if (geteuid() != 0) {
        std::filesystem::create_directories(dir / "locked");
        chmod((dir / "locked").c_str(), 0555);
        outs.push_back(dir / "locked" / "report.pdf");
    }
    for (const auto& out : outs) {
        const auto ran = runTarnwick({"report", sample, out.string()}, dir);
        EXPECT_EQ(ran.status, 1) << out;
        EXPECT_NE(ran.err.find("tarnwick: "), std::string::npos) << ran.err;
        EXPECT_FALSE(std::filesystem::exists(out)) << out;
    }
    if (geteuid() != 0) {
        EXPECT_TRUE(std::filesystem::is_empty(dir / "locked"));
        chmod((dir / "locked").c_str(), 0755);
    }
    const auto named = runTarnwick({"report", sample, (dir / "report.png").string()}, dir);
    EXPECT_EQ(named.status, 2) << "a report is a PDF";
    EXPECT_FALSE(std::filesystem::exists(dir / "report.png"));
    const auto bad = runTarnwick({"report", (dir / "missing.ebnt").string(), (dir / "r.pdf").string()}, dir);
    EXPECT_EQ(bad.status, 1);
    EXPECT_FALSE(std::filesystem::exists(dir / "r.pdf"));
}

} // namespace
} // namespace tw
