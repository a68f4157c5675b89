// SPDX-License-Identifier: Apache-2.0
// The input file: exact bytes, round trips, and files that must be refused.
#include "FakePorts.h"
#include "ProjectMaker.h"

#include "core/inputfile/Codepage.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <sys/stat.h>
#include <variant>

namespace tw {
namespace {

using test::Loaded;
using test::ProjectMaker;

std::string blanks(int n) { return std::string(n, ' '); }

TEST(InputFileWriter, DefaultProjectWithACapLengthOf45) {
    Loaded app;
    app->setText(Ctl::txtCapLength, "45.0000");
    const std::string expected = "\r\n\r\n\r\n"
                                 "100 2 0 4 0   200001450000 " +
                                 blanks(12) +
                                 "\r\n"
                                 "20030000 20000  115000 20000 20000 \r\n"
                                 "300" +
                                 blanks(24) +
                                 "\r\n"
                                 "500" +
                                 blanks(24) +
                                 "\r\n"
                                 "600\r\n"
                                 "700 4 4" +
                                 blanks(24) +
                                 "\r\n"
                                 "80010000 40000 10000090 0 000" +
                                 blanks(9) + "0\r\n";
    const auto text = composeSave(*app);
    EXPECT_FALSE(text.aborted);
    EXPECT_EQ(text.bytes, expected);
}

TEST(InputFileWriter, NumericFields) {
    struct Case {
        int width;
        const char* text;
        const char* field;
    } cases[] = {
        {6, "12.50", "1250  "},    {6, "7", "7     "},       {6, "", "      "}, {6, "abc", "      "},
        {6, " 1.5 ", "15    "},    {6, "-0.25", "-025  "},   {3, "90", "90 "},  {2, "0", "0 "},
        {7, "45.0000", "450000 "}, {6, "99.9999", "999999"}, {3, "5.0", "50 "},
    };
    for (const auto& c : cases)
        EXPECT_EQ(numericField(c.width, c.text), c.field) << c.text;
    EXPECT_THROW(numericField(6, "123.4567"), RuntimeError);
    EXPECT_EQ(countField("5"), " 5");
    EXPECT_EQ(countField("12"), "12");
    EXPECT_EQ(countField("100"), "100");
}

TEST(InputFileWriter, MoreThan99BentsIsToldAndWrittenAsItStands) {
    Loaded app;
    app->setBentCounter(100);
    const auto text = composeSave(*app);
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].text, "You can use a maximum of only 99 bents.");
    EXPECT_EQ(app.ports.messages[0].icon, MsgIcon::None);
    EXPECT_NE(text.bytes.find("\r\n100 2100 4 0 "), std::string::npos);
}

TEST(InputFileWriter, AFailedSaveLeavesThePreviousFile) {
    Loaded app;
    const auto dir = std::filesystem::temp_directory_path() / "tarnwick-failed-save";
    std::filesystem::create_directories(dir);
    const auto path = (dir / "bent.ebnt").string();
    std::ofstream(path, std::ios::binary) << "previous contents";
    app->setText(Ctl::txtCapWidth, "123.4567"); // too wide for its field
    EXPECT_FALSE(writeInputFile(*app, path));
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Error");
    std::ifstream in(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "previous contents");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), {}), 1) << "no temporary file left behind";
    std::filesystem::remove_all(dir);
}

TEST(InputFileWriter, ANameThatCannotBeWrittenIsToldAndChangesNothing) {
    Loaded app;
    const auto dir = std::filesystem::temp_directory_path() / "tarnwick-unwritable";
    std::filesystem::create_directories(dir / "bent.ebnt"); // a folder where the file would go
    EXPECT_FALSE(writeInputFile(*app, (dir / "bent.ebnt").string()));
    EXPECT_FALSE(writeInputFile(*app, (dir / "no such folder" / "bent.ebnt").string()));
    ASSERT_EQ(app.ports.messages.size(), 2u);
    for (const auto& m : app.ports.messages)
        EXPECT_EQ(m.title, "Error");
    EXPECT_TRUE(std::filesystem::is_directory(dir / "bent.ebnt"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), {}), 1) << "no temporary file left behind";
    std::filesystem::remove_all(dir);
}

TEST(Codepage, TitlesTravelAsWindows1252) {
    EXPECT_EQ(utf8ToCp1252("Caf\u00e9 \u2013 90\u00b0 \u4e2d"), "Caf\xe9 \x96 90\xb0 ?");
    EXPECT_EQ(cp1252ToUtf8("Caf\xe9 \x96 90\xb0"), "Caf\u00e9 \u2013 90\u00b0");
}

TEST(InputFileRoundTrip, WriteReadWriteGivesTheSameBytesAndTable) {
    for (unsigned seed = 1; seed <= 150; ++seed) {
        Loaded first;
        ProjectMaker(seed).fill(*first);
        first->setText(Ctl::txtPileBoxDistance2, "1.0000"); // never equal to the first: no pile-box stop
        first->setText(Ctl::txtPileBoxDistance1, "9.0000");
        const auto written = composeSave(*first);
        ASSERT_FALSE(written.aborted) << "seed " << seed;
        Loaded second;
        ASSERT_NO_THROW(parseProject(*second, written.bytes)) << "seed " << seed << "\n" << written.bytes;
        EXPECT_EQ(composeSave(*second).bytes, written.bytes) << "seed " << seed;
        EXPECT_EQ(second->project().bentCounter, first->project().bentCounter);
        EXPECT_EQ(second->project().bentRegister, first->project().bentRegister);
        ASSERT_EQ(second->table().rows(), first->table().rows()) << "seed " << seed;
        for (int r = 0; r < first->table().rows(); ++r)
            EXPECT_EQ(second->table().rowCells(r), first->table().rowCells(r)) << "seed " << seed << " row " << r;
        for (Ctl c : {Ctl::txtCapLength, Ctl::txtCapWidth, Ctl::txtCapDepth, Ctl::cboTybent, Ctl::cboNoBeam,
                      Ctl::cboDrScale, Ctl::cboBSkew, Ctl::cboTypeOfPile, Ctl::cboStrirrups, Ctl::cboBearingHole,
                      Ctl::txtCenterlineDistance, Ctl::cboAngleType})
            EXPECT_EQ(second->text(c), first->text(c)) << "seed " << seed << " " << ctlName(c);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(second->text(CtlId(Ctl::txtProjectInfo, i)), first->text(CtlId(Ctl::txtProjectInfo, i)));
    }
}

// Delete leaves the count in record "100" as it was: what a save then writes
// opens with the bents it holds, says so, and saves again with the lower count.
TEST(InputFileReader, AFileListingMoreBentsThanItHoldsOpensWithThoseItHolds) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        Loaded first;
        ProjectMaker(seed).fill(*first);
        first->setText(Ctl::txtPileBoxDistance2, "1.0000");
        first->setText(Ctl::txtPileBoxDistance1, "9.0000");
        const int held = first->project().bents();
        if (held == 0 || held >= 99) continue;
        first->setBentCounter(static_cast<std::int16_t>(held + 1 + static_cast<int>(seed) % (99 - held)));
        const auto written = composeSave(*first);
        Loaded second;
        std::vector<std::string> notes;
        ASSERT_NO_THROW(parseProject(*second, written.bytes, &notes)) << "seed " << seed << "\n" << written.bytes;
        ASSERT_EQ(notes.size(), 1u) << "seed " << seed;
        EXPECT_NE(notes[0].find("holds " + std::to_string(held)), std::string::npos) << notes[0];
        EXPECT_EQ(second->project().bentCounter, held) << "seed " << seed;
        ASSERT_EQ(second->table().rows(), first->table().rows()) << "seed " << seed;
        for (int r = 0; r < first->table().rows(); ++r)
            EXPECT_EQ(second->table().rowCells(r), first->table().rowCells(r)) << "seed " << seed << " row " << r;
        first->setBentCounter(static_cast<std::int16_t>(held));
        EXPECT_EQ(composeSave(*second).bytes, composeSave(*first).bytes) << "seed " << seed;
    }
}

std::string sampleBytes(const char* name) {
    std::ifstream in(std::string(TW_SOURCE_DIR) + "/samples/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// Reads bytes into a fresh project; true when they were taken.
bool takes(const std::string& bytes) {
    Loaded app;
    try {
        parseProject(*app, bytes);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

TEST(InputFileReader, RefusesEveryTruncationBeforeTheLastLineEnds) {
    for (const char* name : {"end-with-backwall.ebnt", "twelve-beams.ebnt", "intermediate.ebnt"}) {
        const std::string good = sampleBytes(name);
        ASSERT_TRUE(takes(good)) << name;
        const size_t lastLineEnd = good.size() - 2;
        for (size_t cut = 0; cut < lastLineEnd; ++cut)
            EXPECT_FALSE(takes(good.substr(0, cut))) << name << " cut at " << cut;
    }
}

// The project a file holds, read onto a fresh form, or the description of its refusal.
std::variant<Project, std::string> readBack(const std::string& bytes) {
    Loaded app;
    try {
        parseProject(*app, bytes);
        return app->project();
    } catch (const RuntimeError& e) {
        return e.description();
    }
}

TEST(InputFileReader, AMutatedFileReadsBackStablyOrIsRefusedAtItsLine) {
    const std::string good = sampleBytes("end-with-backwall.ebnt");
    const auto lines = std::count(good.begin(), good.end(), '\n');
    std::mt19937 rng(7);
    int read = 0, refused = 0;
    for (int trial = 0; trial < 300; ++trial) {
        std::string bad = good;
        const int changes = 1 + static_cast<int>(rng() % 4);
        for (int k = 0; k < changes; ++k)
            bad[rng() % bad.size()] = static_cast<char>(rng() % 256);
        const auto first = readBack(bad);
        if (const auto* why = std::get_if<std::string>(&first)) {
            // A refusal names the line it stopped at, and that line is in the file.
            std::smatch m;
            ASSERT_TRUE(std::regex_search(*why, m, std::regex(R"(\(line (\d+)\)$)")))
                << "trial " << trial << ": " << *why;
            const int line = std::stoi(m[1]);
            EXPECT_GE(line, 1) << *why;
            EXPECT_LE(line, lines + 1) << *why;
            ++refused;
            continue;
        }
        // What was read writes a file that reads back to the same project and the same bytes.
        const std::string written = describeInputFile(std::get<Project>(first));
        const auto second = readBack(written);
        ASSERT_TRUE(std::holds_alternative<Project>(second))
            << "trial " << trial << ": " << std::get<std::string>(second);
        EXPECT_EQ(describeInputFile(std::get<Project>(second)), written) << "trial " << trial;
        const auto third = readBack(describeInputFile(std::get<Project>(second)));
        EXPECT_TRUE(std::get<Project>(third) == std::get<Project>(second)) << "trial " << trial;
        ++read;
    }
    // Both roads are walked.
    EXPECT_GT(read, 20);
    EXPECT_GT(refused, 20);
}

TEST(InputFileReader, RefusesJunkAndTakesWhatFollowsTheRecords) {
    const std::string good = sampleBytes("end-with-backwall.ebnt");
    std::mt19937 rng(7);
    std::string junk(4096, '\0');
    for (auto& c : junk)
        c = static_cast<char>(rng() % 256);
    EXPECT_FALSE(takes(junk));
    EXPECT_FALSE(takes(std::string(1 << 20, 'x')));
    EXPECT_FALSE(takes(""));
    // Lines may carry more than their fields, and lines after the last record are ignored.
    std::string longLines = good;
    for (size_t p = 0; (p = longLines.find("\r\n", p)) != std::string::npos; p += 2 + 5000)
        longLines.insert(p, std::string(5000, '9'));
    EXPECT_TRUE(takes(longLines));
    EXPECT_TRUE(takes(good + "trailing notes\r\n"));
}

} // namespace
} // namespace tw

namespace tw {
namespace {

// The project counts as modified from the first change until it is saved or
// opened again; a save the pile-box check cut short leaves it modified.
TEST(ModifiedProject, FollowsChangesSavesAndOpens) {
    test::Program app;
    EXPECT_FALSE(app->modified());
    app->actions.type(Ctl::txtCapLength, "40");
    EXPECT_TRUE(app->modified());

    const auto dir = std::filesystem::temp_directory_path() / "tw-modified-test";
    std::filesystem::create_directories(dir);
    const std::string path = (dir / "bent.ebnt").string();
    app.ports.files = {path};
    app->actions.click(Ctl::mnuSave);
    EXPECT_FALSE(app->modified());

    app->actions.choose(Ctl::cboWingParallel, 0);
    app->actions.choose(Ctl::cboWingwallPileBox, 3);
    EXPECT_TRUE(app->modified());
    app.ports.answers = {MsgAnswer::Yes}; // "Save file as ..."
    app->actions.click(Ctl::mnuSave);
    EXPECT_TRUE(app->project().saveFailed) << "equal pile-box distances stop the file";
    EXPECT_TRUE(app->modified());

    app.ports.files = {path};
    app.ports.answers = {MsgAnswer::Yes}; // revert to the saved copy
    app->actions.click(Ctl::mnuOpen);
    EXPECT_FALSE(app->modified());
    EXPECT_EQ(app->text(Ctl::cboWingwallPileBox), "0");
    std::filesystem::remove_all(dir);
}

} // namespace
} // namespace tw

namespace tw {
namespace {

namespace fs = std::filesystem;

std::string sample(const char* name) {
    std::ifstream in(std::string(TW_SOURCE_DIR) + "/samples/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// The description of the standard error box's text.
std::string description(const std::string& boxText) {
    const auto from = boxText.find("Description:\t") + 13;
    return boxText.substr(from, boxText.find("\r\n", from) - from);
}

// Only a regular file of at most 1 MiB is read: anything else, and a file
// that fails while it is read, ends in the error box that names the cause;
// Open resets the form, and the program goes on.
TEST(InputFileReader, OpensOnlySmallRegularFiles) {
    const fs::path dir = fs::temp_directory_path() / "tw-reader-files";
    fs::remove_all(dir);
    fs::create_directories(dir / "folder.ebnt");
    ASSERT_EQ(mkfifo((dir / "pipe.ebnt").c_str(), 0600), 0);
    std::ofstream(dir / "large.ebnt", std::ios::binary) << sample("intermediate.ebnt");
    fs::resize_file(dir / "large.ebnt", kMaxInputFileBytes + 1);
    const std::pair<fs::path, std::string> cases[] = {
        {dir / "folder.ebnt", "Path/File access error: " + (dir / "folder.ebnt").string() + " is a folder"},
        {dir / "pipe.ebnt",
         "Path/File access error: " + (dir / "pipe.ebnt").string() + " is not a file but a device, a pipe or a socket"},
        {"/dev/zero", "Path/File access error: /dev/zero is not a file but a device, a pipe or a socket"},
        {"/proc/self/mem", "Device I/O error: /proc/self/mem could not be read to its end"},
        {dir / "large.ebnt", "Path/File access error: " + (dir / "large.ebnt").string() +
                                 " is larger than a file of its kind can be (1 MiB)"},
        {dir / "missing.ebnt", "File not found: " + (dir / "missing.ebnt").string()},
    };
    test::Program app;
    for (const auto& [path, said] : cases) {
        app.ports.messages.clear();
        app->actions.edit(Ctl::txtCapLength, "40.0000");
        app.ports.files = {path.string()};
        app->actions.click(Ctl::mnuOpen);
        ASSERT_EQ(app.ports.messages.size(), 1u) << path;
        EXPECT_EQ(app.ports.messages[0].title, "Error");
        EXPECT_EQ(description(app.ports.messages[0].text), said);
        EXPECT_EQ(app->text(Ctl::txtCapLength), "") << "a failed read resets the form";
    }
    fs::remove_all(dir);
}

TEST(InputFileReader, DescriptionsSpeakPlainlyAndShowNoRawBytes) {
    auto refusal = [](const std::string& bytes) {
        Loaded app;
        try {
            parseProject(*app, bytes);
        } catch (const RuntimeError& e) {
            return e.description();
        }
        return std::string("read");
    };
    // The writer puts a count of 100 bents or more in three columns and more.
    for (int beams : {0, 11, 19})
        for (int bents : {100, 150, 999, 1000}) {
            Loaded app;
            app->setListIndex(Ctl::cboNoBeam, beams);
            app->setBentCounter(static_cast<std::int16_t>(bents));
            EXPECT_EQ(refusal(composeSave(*app).bytes), "The file holds more than 99 bents")
                << bents << " bents, " << beams + 1 << " beams";
        }

    std::string utf16 = "\xFF\xFE";
    for (char c : sample("intermediate.ebnt")) {
        utf16 += c;
        utf16 += '\0';
    }
    EXPECT_EQ(refusal(utf16),
              "Invalid file format: the file is UTF-16 text; an input file is single-byte text (Windows-1252)");
    const std::string withoutMark = refusal(utf16.substr(2));
    EXPECT_EQ(withoutMark.find('\0'), std::string::npos);
    EXPECT_EQ(withoutMark,
              "Invalid file format: record 100  expected, found \"\\x001\\x000\\x000\\x00 \\x002\\x00 \" (line 4)");

    std::string control = sample("intermediate.ebnt");
    control.replace(control.find("\r\n200") + 2, 1, "\x0B");
    EXPECT_EQ(refusal(control), "Invalid file format: record 200 expected, found \"\\x0B0027500 250\" (line 5)");
    EXPECT_EQ(printableBytes("a\x7F\x81\xE9\t"), "a\\x7F\\x81\u00e9\\x09");
}

// A number field holding what is no number is read, and told: a save would write blanks there.
TEST(InputFileReader, NumberFieldsThatHoldNoNumberAreTold) {
    std::string bytes = sample("intermediate.ebnt");
    bytes.replace(bytes.find("365000 "), 7, "36a000 ");
    bytes.replace(bytes.find("10132 "), 6,
                  std::string("101\0"
                              "32 ",
                              6));
    Loaded app;
    std::vector<std::string> notes;
    ASSERT_NO_THROW(parseProject(*app, bytes, &notes));
    EXPECT_EQ(app->text(Ctl::txtCapLength), "36.a000");
    EXPECT_EQ(notes, (std::vector<std::string>{
                         "line 4: txtCapLength holds \"36.a000\", which is not a number: it will be saved as blanks",
                         "line 7: bent 1 of the bent table (column \"1Step\") holds \"101\\x00.32\", which is not a "
                         "number: it will be saved as blanks"}));
    EXPECT_NE(composeSave(*app).bytes.find("100 2 1 5 1   100001" + std::string(7, ' ') + "42500 "), std::string::npos);
}

} // namespace
} // namespace tw
