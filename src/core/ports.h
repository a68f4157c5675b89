// SPDX-License-Identifier: Apache-2.0
// What the program's logic asks of the outside world, in two parts: what the
// user answers, and what the platform does.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tw {

// Positions and sizes are in twips, as the old forms were laid out: 15 to a
// pixel on a screen of 96 dots per inch.
inline constexpr int kTwipsPerPixel = 15;

enum class MsgButtons { OK, OKCancel, YesNo };
enum class MsgIcon { None, Critical };
enum class MsgAnswer { OK, Cancel, Yes, No };

enum class FileDialogKind { Open, Save };

struct FileDialogRequest {
    FileDialogKind kind = FileDialogKind::Open;
    std::string title;
    std::string filter;     // legacy form: "Description (*.ext)|*.ext"
    std::string defaultExt; // without the dot
    bool overwritePrompt = false;
    std::string fileName; // the dialog's current file name
};

// A program to start and what it is given. `program` is the user's own
// setting -- a program, possibly followed by options of its own -- and is
// split into words as a command line is; each of `arguments` reaches the
// program as one word, as it stands, whatever it holds.
struct ProgramCall {
    std::string program;
    std::vector<std::string> arguments;
    // The call as the one command line it once was: the program, then each argument in double quotes.
    std::string commandLine() const {
        std::string line = program;
        for (const auto& a : arguments)
            line += " \"" + a + "\"";
        return line;
    }
};

// How a wait for a program ended, when the program did not end by itself.
struct WaitEnd {
    bool cancelled = false; // the user cancelled the wait (or left the program)
    int timedOutAfter = 0;  // seconds of the time limit that ended it
    bool endedEarly() const { return cancelled || timedOutAfter > 0; }
};

struct ProcessResult {
    bool started = false;
    int exitCode = 0;
    bool crashed = false;
    std::string error; // why it could not start, when it did not
    WaitEnd end;
};

struct EngineResult {
    bool ok = false;
    int errorNumber = 0;
    std::string error;
    WaitEnd end;
};

// A file written: errorNumber 0, or the run-time error that stopped it.
struct WriteResult {
    int errorNumber = 0;
    std::string error;
    // A write on condition found the file changed, and wrote nothing.
    bool changed = false;
};

// An INI file is a page of settings; one far larger than this is not read.
inline constexpr std::uintmax_t kMaxIniBytes = 1024 * 1024;

// A file read whole: its bytes, or the run-time error that stopped it.
struct ReadResult {
    std::string bytes;
    int errorNumber = 0;
    std::string error;
};

// The program the desktop opens a file type with.
struct AssociatedProgram {
    enum class Status { Found, NoAssociation, Unreadable } status = Status::NoAssociation;
    std::string command; // program, possibly followed by "%1"-style placeholders
};

// A copy of unsaved work, put aside before a command discards it.
struct PutAside {
    bool kept = false;
    std::string path;  // where the copy lies
    std::string time;  // when it was kept, as the clock shows it ("HH:MM")
    std::string error; // why it could not be kept
};

struct PrintDocument {
    std::string file;
    std::vector<std::string> lines;
};

// What the user answers and sees: message boxes, file and printer dialogs,
// the printer, the windows and the pointer. The window answers with Qt, the
// headless front end from its script, tests with fakes.
class UserPorts {
  public:
    virtual ~UserPorts() = default;

    virtual MsgAnswer message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) = 0;
    // The chosen path, or nothing when the dialog was cancelled.
    virtual std::optional<std::string> fileDialog(const FileDialogRequest& request) = 0;
    // True to go on printing, false when cancelled.
    virtual bool printerDialog() = 0;
    virtual void print(const PrintDocument& doc) = 0;
    // The documents of one Print command are done: the printer may finish the job.
    virtual void endPrintJob() {}
    // A document the desktop has no program for (the user guide), shown inside the program.
    virtual void showDocument(const std::string& file) { (void)file; }

    virtual void setBusyCursor(bool busy) = 0;
    virtual void windowShow(const std::string& form, const std::string& caption) = 0;
    virtual void windowClose(const std::string& form) = 0;
    virtual void pictureLoaded(const std::string& control, const std::string& file) = 0;
    // Lets pending user-interface events run (between printed documents, say).
    virtual void processEvents() {}
    // A wait for a program begins and ends: the user sees what is awaited,
    // may go on working, and may cancel it, which calls `cancel`. Waits nest.
    virtual void waitBegins(const std::string& /*what*/, std::function<void()> /*cancel*/) {}
    virtual void waitEnds() {}
    // A word that needs no answer (the status bar of the window, standard
    // error headless); it stands until the next one. Empty clears it.
    virtual void notice(const std::string& /*text*/) {}
    // Beside the last notice, one click away: open this drawing in the
    // program's own viewer. Empty withdraws the offer.
    virtual void offerDrawingViewer(const std::string& /*drawing*/) {}
    // A word about what the user just did (a key a field refused, a file
    // read with fewer bents): the status bar and, for `field`, a balloon at
    // its caret. It stands like a notice.
    virtual void note(const std::string& text, const std::string& /*field*/) { notice(text); }
    // Unsaved work was put aside before a command discarded it, or could not
    // be: a bar above the form, with Restore when `copy` names the copy.
    virtual void toldPutAside(const std::string& /*text*/, const std::string& /*copy*/) {}

    // Screen size in twips, for centring forms.
    virtual int screenWidthTwips() const { return 1366 * kTwipsPerPixel; }
    virtual int screenHeightTwips() const { return 768 * kTwipsPerPixel; }
};

// What the platform does: programs, the engine, settings, INI files and the
// desktop's programs for documents. One implementation serves every front end.
class SystemPorts {
  public:
    virtual ~SystemPorts() = default;

    // Opens a document with the desktop's program for it; a relative name is
    // taken from `folder`. False when the desktop has no program to open it with.
    virtual bool shellOpen(const std::string& file, const std::string& parameters, const std::string& folder) = 0;
    // Starts a program without a shell and waits for its end while the
    // user interface keeps processing events. The program, and what it
    // starts, ends with this program.
    virtual ProcessResult startAndWait(const ProgramCall& call) = 0;
    // Ends every program now waited for (by startAndWait or callEngine);
    // their waits return as cancelled.
    virtual void cancelWaits() = 0;
    // Starts a program without a shell and goes on; false when it cannot start.
    virtual bool startDetached(const ProgramCall& call) = 0;
    // Calls DLL_ROUT of the engine library in the program folder with the ten names.
    virtual EngineResult callEngine(const std::string& programDir, const std::array<std::string, 10>& names) = 0;

    virtual std::string readSetting(const std::string& app, const std::string& section, const std::string& key) = 0;
    virtual void writeSetting(const std::string& app, const std::string& section, const std::string& key,
                              const std::string& value) = 0;
    // Raw read of one key, the way a private-profile read works: no escapes.
    virtual std::string readIni(const std::string& path, const std::string& section, const std::string& key,
                                const std::string& defaultValue) = 0;
    virtual AssociatedProgram associatedProgram(const std::string& file) = 0;

    // Empties the outputs Run names, creating the ones that do not exist;
    // refuses, emptying none, when one is not a plain file of its own (a
    // link, a folder, a pipe, a device). Never follows a link nor waits.
    virtual WriteResult emptyFiles(const std::vector<std::string>& paths) = 0;

    // Puts `bytes` in the file at `path` so that a failure leaves the
    // previous file as it was, and the file stays the user's: its mode,
    // owner and group, a symbolic link to it, and a read-only file refused.
    virtual WriteResult writeFile(const std::string& path, const std::string& bytes) = 0;
    // As writeFile, but only while the file holds `expected` (a file larger
    // than `maxBytes` holds something else); otherwise `changed` and nothing
    // written. The file is looked at under an exclusive lock held until the
    // new bytes are in place, so of two saves at once the second sees the first.
    virtual WriteResult writeFileIfUnchanged(const std::string& path, const std::string& bytes,
                                             const std::string& expected, std::uintmax_t maxBytes) = 0;
    // The bytes of a regular file of at most `maxBytes`; anything else (a
    // folder, a device, a pipe, a larger file) and every failure to read is
    // refused with a description that names the cause.
    virtual ReadResult readFile(const std::string& path, std::uintmax_t maxBytes) = 0;

    // Keeps `bytes` (a recovery file of the project) in the user's own
    // folder of put-aside work, before `command` discards what they hold.
    // Never blocks: a copy that cannot be written says why.
    virtual PutAside putAside(const std::string& bytes, const std::string& command) = 0;
    // Keeps a copy of the plain file at `path` in the same folder of
    // put-aside work, before Run empties it. Nothing kept and no error when
    // there is no such file or it is empty. Never follows a link nor waits.
    virtual PutAside putAsideFile(const std::string& path) = 0;
};

} // namespace tw
