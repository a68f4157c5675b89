// SPDX-License-Identifier: Apache-2.0
// The program a drawing opens with: the desktop's default application for
// the drawing's MIME type, its Exec line turned into an open command; and
// Preview on "DGN File" starting it on the drawing.
#include "platform/DesktopEntry.h"
#include "platform/Platform.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <thread>

namespace tw {
namespace {

namespace fs = std::filesystem;

TEST(DesktopExec, BecomesTheProgramAndAQuotedPlaceholder) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"tarnwick %f", R"(tarnwick "%1")"},
        {"/opt/cad/ustation -wsDRAW=1 %U", R"(/opt/cad/ustation -wsDRAW=1 "%1")"},
        {R"("/opt/my cad/draw" --view %f --quiet)", R"("/opt/my cad/draw" --view "%1" --quiet)"},
        {"draw %i %c %k %F", R"(draw "%1")"},
        {"draw", R"(draw "%1")"},
        {"draw %f 50%%", R"(draw "%1" 50%)"},
        {R"(draw "say \"hi\"" %u)", R"(draw "say """hi"""" "%1")"},
        {"  draw   %f  ", R"(draw "%1")"},
    };
    for (const auto& [exec, expected] : cases) {
        SCOPED_TRACE(exec);
        const auto command = openCommandFromExec(exec);
        ASSERT_TRUE(command);
        EXPECT_EQ(*command, expected);
    }
    // The program text before the placeholder reads back as the words of the Exec line.
    const std::string quoted = *openCommandFromExec(R"("/opt/my cad/draw" "say \"hi\"" %f)");
    EXPECT_EQ(QProcess::splitCommand(QString::fromStdString(quoted.substr(0, quoted.find('%') - 2))),
              (QStringList{"/opt/my cad/draw", "say \"hi\""}));
    // No program, or a "%" of its own that the association rule would take for the file.
    for (const char* exec : {"", "   ", "%f", "%i %f", R"("" %f)", "draw 100%% %f"}) {
        SCOPED_TRACE(exec);
        EXPECT_FALSE(openCommandFromExec(exec));
    }
}

TEST(DesktopExec, ReadFromTheDesktopEntryGroupWithItsEscapes) {
    EXPECT_EQ(desktopEntryExec("[Desktop Action New]\nExec=wrong\n# Exec=remark\n[Desktop Entry]\nName=Draw\n"
                               "Exec[de]=falsch\nExec = /opt/my\\scad/draw\\\\x %f\r\nExec=second\n"),
              "/opt/my cad/draw\\x %f");
    EXPECT_FALSE(desktopEntryExec("[Desktop Entry]\nName=Draw\n[Other]\nExec=draw\n"));
    EXPECT_FALSE(desktopEntryExec(""));
}

class Xdg : public ::testing::Test {
  protected:
    fs::path root;
    std::map<std::string, std::optional<std::string>> saved;

    void setEnv(const std::string& name, const std::optional<std::string>& value) {
        if (!saved.count(name)) {
            const char* old = std::getenv(name.c_str());
            saved[name] = old ? std::optional<std::string>(old) : std::nullopt;
        }
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
    }
    void SetUp() override {
        // No "." in the path: the printer window cuts file names at the first one.
        std::string pattern = (fs::temp_directory_path() / "tarnwick-xdg-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        root = pattern;
        for (const char* d : {"data/applications", "data/mime/packages", "config", "system", "work"})
            fs::create_directories(root / d);
        setEnv("XDG_DATA_HOME", (root / "data").string());
        setEnv("XDG_CONFIG_HOME", (root / "config").string());
        setEnv("XDG_DATA_DIRS", (root / "system").string());
        setEnv("XDG_CONFIG_DIRS", (root / "system").string());
        // The desktop's own tools would answer for a desktop session; the test stands for none.
        for (const char* v : {"XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "KDE_FULL_SESSION", "GNOME_DESKTOP_SESSION_ID"})
            setEnv(v, std::nullopt);
        // A viewer started here finds no display and ends at once instead of opening a window.
        for (const char* v : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            setEnv(v, std::nullopt);
    }
    void TearDown() override {
        for (const auto& [name, value] : saved)
            value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
        fs::remove_all(root);
    }
    static void write(const fs::path& p, const std::string& text) {
        fs::create_directories(p.parent_path());
        std::ofstream(p, std::ios::binary) << text;
    }
    static int run(const std::string& command) { return std::system((command + " >/dev/null 2>&1").c_str()); }
    std::string drawing() const { return (root / "work" / "intermediatee.dgn").string(); }

    // Print, "DGN File", Preview on a project that has been run: what the replay prints.
    std::string preview() {
        if (!fs::exists(root / "work/script.txt")) {
            for (const auto& f : fs::directory_iterator(fs::path(TW_SOURCE_DIR) / "tests/replay/print-outputs/files"))
                fs::copy_file(f.path(), root / "work" / f.path().filename());
            write(root / "work/script.txt", "file intermediate.ebnt\nclick mnuOpen\ntoolbar Print\n"
                                            "choose cmbFileTypes \"DGN File\"\nclick printPreview\n");
        }
        const std::string replay = std::string(TW_PROGRAM_DIR) + "/tarnwick --program-dir " + TW_PROGRAM_DIR +
                                   " replay " + (root / "work/script.txt").string() + " > " +
                                   (root / "out.txt").string() + " 2>/dev/null";
        EXPECT_EQ(std::system(replay.c_str()), 0);
        std::ifstream out(root / "out.txt");
        std::stringstream printed;
        printed << out.rdbuf();
        return printed.str();
    }
    // The line that tells a program was started on the drawing.
    std::string started(const std::string& program) const {
        return "start \"" + program + " \\\"" + drawing() + "\\\"\"\n";
    }
};

TEST_F(Xdg, TheDefaultApplicationOfTheDrawingTypeIsFoundAndStartedByPreview) {
    // The drawing type, as the package declares it where the desktop's database has none.
    write(root / "data/mime/packages/tarnwick-test.xml",
          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
          "  <mime-type type=\"image/vnd.dgn\"><comment>MicroStation design file</comment>"
          "<glob pattern=\"*.dgn\"/></mime-type>\n</mime-info>\n");
    ASSERT_EQ(run("update-mime-database " + (root / "data/mime").string()), 0);
    Platform platform;
    EXPECT_EQ(platform.associatedProgram(drawing()).status, AssociatedProgram::Status::NoAssociation);

    // Registering the viewer's entry is enough when no other program takes drawings.
    const std::string viewer = std::string(TW_PROGRAM_DIR) + "/tarnwick";
    write(root / "data/applications/tarnwick-test-viewer.desktop",
          "[Desktop Entry]\nType=Application\nName=Viewer\nExec=" + viewer + " %f\nMimeType=image/vnd.dgn;\n");
    ASSERT_EQ(run("update-desktop-database " + (root / "data/applications").string()), 0);
    AssociatedProgram found = platform.associatedProgram(drawing());
    EXPECT_EQ(found.status, AssociatedProgram::Status::Found);
    EXPECT_EQ(found.command, viewer + " \"%1\"");
    const std::string viewed = preview();
    EXPECT_NE(viewed.find(started(viewer)), std::string::npos) << viewed;

    // Another program chosen for drawings is used instead; its entry lives in a subfolder.
    const fs::path recorder = root / "record";
    write(recorder, "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"" + (root / "args.tmp").string() + "\"\nmv \"" +
                        (root / "args.tmp").string() + "\" \"" + (root / "args.txt").string() + "\"\n");
    fs::permissions(recorder, fs::perms::owner_all);
    write(root / "data/applications/tarnwicktest/recorder.desktop",
          "[Desktop Entry]\nType=Application\nName=Recorder\nExec=" + recorder.string() + " %U\n");
    ASSERT_EQ(run("xdg-mime default tarnwicktest-recorder.desktop image/vnd.dgn"), 0);
    found = platform.associatedProgram(drawing());
    EXPECT_EQ(found.status, AssociatedProgram::Status::Found);
    EXPECT_EQ(found.command, recorder.string() + " \"%1\"");

    // Print, "DGN File", Preview: the program starts on base name & "e.dgn".
    const std::string recorded = preview();
    EXPECT_NE(recorded.find(started(recorder.string())), std::string::npos) << recorded;
    // The program runs on its own; wait for what it was given.
    for (int i = 0; i < 400 && !fs::exists(root / "args.txt"); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(25));
    std::ifstream args(root / "args.txt");
    std::string first;
    std::getline(args, first);
    EXPECT_EQ(first, drawing());

    // An entry whose command cannot be put the way the association rule reads it.
    write(root / "data/applications/tarnwick-test-broken.desktop",
          "[Desktop Entry]\nType=Application\nName=B\nExec=" + recorder.string() + " --scale=100%% %f\n");
    ASSERT_EQ(run("xdg-mime default tarnwick-test-broken.desktop image/vnd.dgn"), 0);
    EXPECT_EQ(platform.associatedProgram(drawing()).status, AssociatedProgram::Status::Unreadable);
}

TEST_F(Xdg, DesktopIdsMayStandForSubfolders) {
    write(root / "system/applications/kde4/draw-plus.desktop", "[Desktop Entry]\n");
    write(root / "data/applications/other.desktop", "[Desktop Entry]\n");
    const auto dirs = xdgDataDirs();
    ASSERT_EQ(dirs.size(), 2u);
    EXPECT_EQ(dirs[0], (root / "data").string());
    EXPECT_EQ(findDesktopEntry("kde4-draw-plus.desktop", dirs),
              (root / "system/applications/kde4/draw-plus.desktop").string());
    EXPECT_EQ(findDesktopEntry("other.desktop", dirs), (root / "data/applications/other.desktop").string());
    for (const char* id : {"", "missing.desktop", "../other.desktop", "applications/other.desktop"}) {
        SCOPED_TRACE(id);
        EXPECT_EQ(findDesktopEntry(id, dirs), "");
    }
}

} // namespace
} // namespace tw
