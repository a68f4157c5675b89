// SPDX-License-Identifier: Apache-2.0
// The reader without a form gives what opening the same bytes on the form
// gives -- the project, the warnings, the status bar's word and the error
// box's text -- over every project file kept here, random projects, and all
// of those cut short and damaged. The commands that only read a file build
// no form.
#include "FakePorts.h"
#include "ProjectMaker.h"
#include "TestFiles.h"

#include "cli/Cli.h"
#include "core/app/ProjectDiff.h"
#include "core/form/FileCommands.h"
#include "core/form/Forms.h"
#include "core/inputfile/ProjectReader.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <sstream>

namespace tw {
namespace {

namespace fs = std::filesystem;

struct Outcome {
    Project project;
    std::vector<std::string> notes;
    std::string hint;
    std::string error;
};

Outcome onTheForm(const std::string& bytes) {
    test::Loaded app;
    Outcome o;
    const bool read = app->guarded([&] { parseProject(*app, bytes, &o.notes); });
    o.project = app->project();
    o.hint = app->hinting() ? app->statusText() : "";
    if (!read) o.error = app.ports.messages.empty() ? "(no message)" : app.ports.messages.back().text;
    return o;
}

Outcome withoutAForm(const std::string& bytes) {
    ProjectRead r = readProject(bytes);
    return {std::move(r.project), std::move(r.notes), r.hint, r.errorText()};
}

// What tells two projects apart, for the failure's message.
std::string apart(const Project& a, const Project& b) {
    std::string out;
    for (const auto& line : projectDifferences(a, b))
        out += line + "\n";
    for (int i = 0; i < inputCount(); ++i)
        if (a.value(i).listIndex != b.value(i).listIndex)
            out += toString(projectInputs()[static_cast<size_t>(i)]) + ": list position " +
                   std::to_string(a.value(i).listIndex) + " / " + std::to_string(b.value(i).listIndex) + "\n";
    if (!(a.table() == b.table()))
        out += "the tables differ: " + std::to_string(a.table().rows()) + "x" + std::to_string(a.table().cols()) +
               " / " + std::to_string(b.table().rows()) + "x" + std::to_string(b.table().cols()) + "\n";
    if (a.bentCounter != b.bentCounter) out += "bent counters differ\n";
    if (a.bentRegister != b.bentRegister) out += "bent registers differ\n";
    return out;
}

// Both roads read `bytes` alike; false when they did not.
bool readAlike(const std::string& bytes, const std::string& what) {
    const Outcome form = onTheForm(bytes), direct = withoutAForm(bytes);
    EXPECT_EQ(direct.error, form.error) << what;
    EXPECT_EQ(direct.notes, form.notes) << what;
    EXPECT_EQ(direct.hint, form.hint) << what;
    EXPECT_TRUE(direct.project == form.project) << what << "\n" << apart(direct.project, form.project);
    return direct.error == form.error && direct.notes == form.notes && direct.hint == form.hint &&
           direct.project == form.project;
}

// Every project file of the samples and the recorded replays.
std::vector<fs::path> keptFiles() {
    std::vector<fs::path> files;
    const fs::path root(TW_SOURCE_DIR);
    for (const auto& e : fs::directory_iterator(root / "samples"))
        if (e.path().extension() == ".ebnt") files.push_back(e.path());
    for (const auto& c : fs::directory_iterator(root / "tests" / "replay"))
        if (fs::is_directory(c.path() / "files"))
            for (const auto& e : fs::directory_iterator(c.path() / "files"))
                if (e.path().extension() == ".ebnt" && e.is_regular_file()) files.push_back(e.path());
    return files;
}

// Random projects as a save writes them, the pile-box check sometimes
// cutting the file short.
std::vector<std::string> madeFiles(unsigned count) {
    std::vector<std::string> files;
    for (unsigned seed = 1; seed <= count; ++seed) {
        test::Loaded maker;
        test::ProjectMaker(seed).fill(*maker);
        files.push_back(composeSave(*maker).bytes);
    }
    return files;
}

// The file damaged the way files get damaged: cut, a line lost or doubled,
// lines out of order, a byte changed, line ends changed.
std::string damaged(std::string bytes, std::mt19937& rng) {
    auto pick = [&](std::size_t n) { return n == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, n - 1)(rng); };
    std::vector<std::string> lines;
    std::istringstream in(bytes);
    for (std::string l; std::getline(in, l);)
        lines.push_back(l + "\n");
    auto joined = [&] {
        std::string s;
        for (const auto& l : lines)
            s += l;
        return s;
    };
    const char pool[] = " 0123456789-.AZ\t\xB0\x01";
    switch (pick(7)) {
    case 0: return bytes.substr(0, pick(bytes.size() + 1));
    case 1:
        if (!lines.empty()) lines.erase(lines.begin() + static_cast<long>(pick(lines.size())));
        return joined();
    case 2:
        if (!lines.empty()) {
            const auto i = pick(lines.size());
            lines.insert(lines.begin() + static_cast<long>(i), lines[i]);
        }
        return joined();
    case 3:
        if (lines.size() > 1) std::swap(lines[pick(lines.size())], lines[pick(lines.size())]);
        return joined();
    case 4: {
        std::string lf;
        for (char c : bytes)
            if (c != '\r') lf += c;
        return lf;
    }
    default:
        for (int n = 1 + static_cast<int>(pick(3)); n > 0 && !bytes.empty(); --n)
            bytes[pick(bytes.size())] = pool[pick(sizeof pool - 1)];
        return bytes;
    }
}

TEST(ProjectReader, TheDefaultProjectIsTheResetForms) {
    test::Loaded app;
    EXPECT_TRUE(defaultProject() == app->project()) << apart(defaultProject(), app->project());
}

TEST(ProjectReader, EveryKeptFileReadsAsOnTheForm) {
    const auto files = keptFiles();
    ASSERT_GE(files.size(), 30u);
    int unread = 0;
    for (const auto& f : files) {
        readAlike(test::slurp(f), f.string());
        unread += readProject(test::slurp(f)).ok() ? 0 : 1;
    }
    EXPECT_GT(unread, 3) << "the refused files are among them";
}

TEST(ProjectReader, RandomProjectsReadAsOnTheForm) {
    int n = 0;
    for (const auto& bytes : madeFiles(120))
        if (!readAlike(bytes, "project " + std::to_string(++n) + ":\n" + bytes)) break;
}

TEST(ProjectReader, DamagedFilesReadAsOnTheForm) {
    std::vector<std::string> sources;
    for (const auto& f : keptFiles())
        sources.push_back(test::slurp(f));
    for (auto& bytes : madeFiles(40))
        sources.push_back(std::move(bytes));
    std::mt19937 rng(35);
    int failures = 0, refused = 0, taken = 0;
    for (const auto& source : sources)
        for (int k = 0; k < 25 && failures < 5; ++k) {
            const std::string bytes = damaged(source, rng);
            if (!readAlike(bytes, "damaged:\n" + bytes)) ++failures;
            (readProject(bytes).ok() ? taken : refused) += 1;
        }
    // Damage both refused and let through, so both roads were walked.
    EXPECT_GT(refused, 100);
    EXPECT_GT(taken, 100);
}

// What a command prints on standard output.
template <class F> std::string printed(F&& command, int* status = nullptr) {
    std::ostringstream out;
    auto* was = std::cout.rdbuf(out.rdbuf());
    const int s = command();
    std::cout.rdbuf(was);
    if (status) *status = s;
    return out.str();
}

TEST(ReadingCommands, BuildNoForm) {
    const fs::path samples = fs::path(TW_SOURCE_DIR) / "samples";
    const std::string a = (samples / "intermediate.ebnt").string(), b = (samples / "twelve-beams.ebnt").string();
    const fs::path dir = test::freshFolder("tw-reading-");
    CliOptions opt;
    opt.programDir = "/nonexistent";
    const int before = formSetsBuilt();
    int status = -1;
    EXPECT_NE(printed(
                  [&] {
                      return cliCheck(opt, {a, b});
                  },
                  &status)
                  .find("intermediate.ebnt: ok (1 bents, 5 beams, Pile Intermediate Bent)"),
              std::string::npos);
    EXPECT_EQ(status, 0);
    EXPECT_NE(printed([&] { return cliDump(opt, a); }).find("cboTybent = \"Pile Intermediate Bent\""),
              std::string::npos);
    EXPECT_FALSE(printed([&] { return cliDiff(opt, a, b); }, &status).empty());
    EXPECT_EQ(status, 1);
    EXPECT_NE(printed([&] { return cliTable(opt, {a}); }).find("Bent Number"), std::string::npos);
    if (!QCoreApplication::instance()) {
        static int argc = 1;
        static char name[] = "unit_tests";
        static char* argv[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static auto app = paintingApplication(argc, argv);
    }
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        EXPECT_EQ(cliDraw(opt, {a, (dir / "bent.svg").string()}), 0);
        EXPECT_TRUE(fs::is_regular_file(dir / "bent.svg"));
        EXPECT_EQ(cliReport(opt, a, (dir / "report.pdf").string()), 0);
        EXPECT_TRUE(fs::is_regular_file(dir / "report.pdf"));
    }
    EXPECT_EQ(formSetsBuilt(), before) << "a command that only reads built a form";
    // Adding rows goes through Add's checks on the form: the counter sees it.
    std::ofstream(dir / "rows.csv") << "Bent Number\n5\n";
    printed([&] {
        return cliTable(opt, {a, "--add", (dir / "rows.csv").string(), "--output", (dir / "new.ebnt").string()});
    });
    EXPECT_GT(formSetsBuilt(), before);
    fs::remove_all(dir);
}

} // namespace
} // namespace tw
