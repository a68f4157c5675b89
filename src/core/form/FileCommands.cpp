// SPDX-License-Identifier: Apache-2.0
#include "core/form/FileCommands.h"
#include "core/form/Events.h"

#include "core/form/Forms.h"
#include "core/form/MainForm.h"
#include "core/form/PutAside.h"
#include "core/form/RecentFiles.h"
#include "core/form/Session.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Numeric.h"

#include <optional>

namespace tw {

namespace {

// What a save asks at its place in the file: the message about too many
// bents, and the check of the pile-box distances of parallel wingwalls.
class SaveChecks : public SaveHooks {
  public:
    explicit SaveChecks(Session& s) : s_(s) {}

    void tooManyBents() override {
        s_.message("You can use a maximum of only 99 bents.", kAppTitle, MsgButtons::OK, MsgIcon::None);
    }

    bool pileBoxCheck() override {
        const double first = s_.project().leading(Ctl::txtPileBoxDistance1);
        const double second = s_.project().leading(Ctl::txtPileBoxDistance2);
        if (second > first) {
            s_.message("The first pile box value should be greater than the second pile box value",
                       "Incorrect Pile Box Value", MsgButtons::OKCancel, MsgIcon::None);
            const std::string t = s_.text(Ctl::txtPileBoxDistance1);
            s_.setText(Ctl::txtPileBoxDistance1, s_.text(Ctl::txtPileBoxDistance2));
            s_.setText(Ctl::txtPileBoxDistance2, t);
            return true;
        }
        if (second < first) return true;
        s_.message("The first pile box should be greater then the second pile box!", "Warning", MsgButtons::OK,
                   MsgIcon::Critical);
        selectTab(s_, kPileBoxTab);
        moveFocus(s_, Ctl::txtPileBoxDistance1);
        s_.selectAll(Ctl::txtPileBoxDistance1);
        return false;
    }

  private:
    Session& s_;
};

// Fills the form as the file is read: choices run their change handlers,
// as when the user picks them; the bent rows go into the table at once.
class FormFill : public ReadSink {
  public:
    explicit FormFill(Session& s) : s_(s) {}

    const Project& project() const override { return s_.project(); }
    void setText(const CtlId& id, const std::string& text) override { s_.setText(id, text); }
    bool setChoice(Ctl ctl, const std::string& text) override {
        const auto& items = s_.ctl(ctl).items;
        if (std::find(items.begin(), items.end(), text) == items.end()) return false;
        finish();
        chooseText(s_, ctl, text);
        return true;
    }
    void addBent(const std::string& tabbedCells, const std::string& number) override {
        pending().addItem(tabbedCells);
        if (!register_) register_ = s_.project().bentRegister;
        register_->push_back(number);
    }
    void setCell(int row, int column, const std::string& text) override { pending().setCell(row, column, text); }
    void setBentCounter(std::int16_t count) override {
        finish();
        s_.setBentCounter(count);
    }
    void fewerBents(int listed, int held) override { fewer_ = fewerBentsText(listed, held); }
    // What the engineer should hear of the file once it is on the form.
    const std::string& fewer() const { return fewer_; }
    // What was read goes onto the form, also when the file then failed.
    void finish() {
        if (table_) s_.changeTable([&](BentTable& t) { t = *std::exchange(table_, std::nullopt); });
        if (register_) s_.setBentRegister(*std::exchange(register_, std::nullopt));
    }

  private:
    BentTable& pending() {
        if (!table_) table_ = s_.table();
        return *table_;
    }
    Session& s_;
    std::optional<BentTable> table_;
    std::optional<std::vector<std::string>> register_;
    std::string fewer_;
};

// A cancelled file dialog ends its command quietly, as the old dialog's
// cancel error did.
std::string chooseFile(Session& s, const FileDialogRequest& request) {
    auto path = s.user.fileDialog(request);
    if (!path) throw RuntimeError(err::kCancel, "Cancel was selected.");
    s.setDialogFileName(*path);
    return *path;
}

FileDialogRequest saveDialog(const char* filter, const char* defaultExt, const std::string& fileName) {
    FileDialogRequest r;
    r.kind = FileDialogKind::Save;
    r.title = "Save As";
    r.filter = filter;
    r.defaultExt = defaultExt;
    r.overwritePrompt = true;
    r.fileName = fileName;
    return r;
}

bool writeAndCaption(Session& s, const std::string& path) {
    if (!writeInputFile(s, path)) return false;
    setMainCaption(s, true);
    rememberRecentFile(s, path);
    // A file the pile-box check cut short holds less than the form: the
    // project is still unsaved, and kept safe as such.
    if (s.project().saveFailed)
        s.markUnsaved();
    else
        s.markSaved();
    return true;
}

// `previous`: the file dialog's name before the command's dialog chose `path`.
void readProject(Session& s, const std::string& path, const std::string& command, const std::string& previous) {
    putAsideUnsaved(s, command, previous);
    s.notice(""); // what was said of the project before does not hold for this one
    resetForm(s);
    if (readInputFile(s, path)) {
        setMainCaption(s, true);
        s.markSaved();
        rememberRecentFile(s, path);
    } else {
        resetForm(s); // never leave a half-read project on the form
    }
}

// False when the file could not be written at all.
bool saveSteps(Session& s) {
    if (!hasCurrentFile(s)) {
        const std::string path =
            chooseFile(s, saveDialog("Tarnwick Input Files (*.ebnt)|*.ebnt", "ibnt", s.dialogFileName()));
        return writeAndCaption(s, path);
    }
    if (s.message("Save file as " + s.dialogFileName(), "Confirm Save", MsgButtons::YesNo, MsgIcon::None) ==
        MsgAnswer::Yes)
        return writeAndCaption(s, s.dialogFileName());
    const std::string path =
        chooseFile(s, saveDialog("Concrete Bent Input Files (*.ebnt)|*.ebnt", "ebnt", s.dialogFileName()));
    return writeAndCaption(s, path);
}

void openChosen(Session& s, const std::string& path, const std::string& previous);

} // namespace

bool newProject(Session& s) {
    if (s.message("Do you want to clear the form and start over?", "Clear Form Confirmation", MsgButtons::YesNo,
                  MsgIcon::None) != MsgAnswer::Yes)
        return false;
    putAsideUnsaved(s, "New");
    resetForm(s);
    return true;
}

void openProject(Session& s) {
    FileDialogRequest r;
    r.kind = FileDialogKind::Open;
    r.title = "open";
    r.filter = "IBnt Files(*.ebnt)|*.ebnt";
    r.defaultExt = "ebnt";
    const std::string previous = s.dialogFileName();
    r.fileName = previous;
    const std::string path = chooseFile(s, r);
    openChosen(s, path, previous);
}

void openPath(Session& s, const std::string& path) {
    const std::string previous = s.dialogFileName();
    s.setDialogFileName(path);
    openChosen(s, path, previous);
}

void openRecentFile(Session& s, int index) {
    if (const auto path = recentFileToOpen(s, index)) openPath(s, *path);
}

namespace {

void openChosen(Session& s, const std::string& path, const std::string& previous) {
    if (!hasCurrentFile(s) || path != previous) {
        readProject(s, path, "Open", previous);
        return;
    }
    if (s.message("File is already open.  Revert to last saved copy?", "Open Confirmation", MsgButtons::YesNo,
                  MsgIcon::None) == MsgAnswer::Yes)
        readProject(s, path, "Revert", previous);
}

} // namespace

bool saveProject(Session& s) {
    try {
        if (!saveSteps(s)) return false;
    } catch (const RuntimeError& e) {
        s.reportError(e, "Error Importing Input File(save)");
        return false;
    }
    return !s.project().saveFailed;
}

bool pileBoxCheck(Session& s) { return SaveChecks(s).pileBoxCheck(); }

InputFileText composeSave(Session& s) {
    SaveChecks checks(s);
    return composeInputFile(s.project(), checks);
}

namespace {

// What the file must still hold for a save to write over it without asking:
// what this window last read or wrote there. Asked about when it holds
// something else -- or holds more than a project can, or cannot be read --
// and then what was seen there; nothing when the user lets the save write
// over what could not be read, or the file is no project this window knows.
std::optional<std::string> expectedOnDisk(Session& s, const std::string& path, std::optional<std::string> known) {
    if (!known) return known;
    const ReadResult now = s.system.readFile(path, kMaxInputFileBytes);
    // A file that is gone holds no one's change to lose.
    if (now.errorNumber == err::kFileNotFound || (!now.errorNumber && now.bytes == *known)) return known;
    // The one question beyond the old form's: asked only when a save would
    // overwrite a change made on disk by someone else.
    if (s.message(changedOnDiskText(path) + "  Save over it?", kChangedOnDiskTitle, MsgButtons::YesNo, MsgIcon::None) !=
        MsgAnswer::Yes)
        throw RuntimeError(err::kCancel, "Cancel was selected.");
    if (now.errorNumber) return std::nullopt;
    return now.bytes;
}

} // namespace

bool writeInputFile(Session& s, const std::string& path) {
    return s.guarded([&] {
        const InputFileText text = composeSave(s);
        std::optional<std::string> known;
        if (s.onDisk() && s.onDisk()->path == path) known = s.onDisk()->bytes;
        for (;;) {
            const std::optional<std::string> expected = expectedOnDisk(s, path, known);
            // Another save may come between the look and the write: the write looks again, under a lock.
            const WriteResult w = expected
                                      ? s.system.writeFileIfUnchanged(path, text.bytes, *expected, kMaxInputFileBytes)
                                      : s.system.writeFile(path, text.bytes);
            if (w.changed) continue;
            if (w.errorNumber) throw RuntimeError(w.errorNumber, w.error);
            break;
        }
        s.setOnDisk(Session::OnDisk{path, text.bytes});
        s.setSaveFailed(text.aborted);
    });
}

std::string changedOnDiskText(const std::string& path) {
    return path + " was changed by another program since it was opened or saved here.";
}

std::string openTwiceText(const std::string& path) {
    return path + " is open in another Tarnwick window too. A save in one would write over what was saved in the "
                  "other; Save asks before it does.";
}

std::optional<Session::OnDisk> changedOnDiskNow(const Session& s) {
    const auto& known = s.onDisk();
    if (!known) return std::nullopt;
    ReadResult now = s.system.readFile(known->path, kMaxInputFileBytes);
    if (now.errorNumber || now.bytes == known->bytes) return std::nullopt;
    return Session::OnDisk{known->path, std::move(now.bytes)};
}

void reloadProject(Session& s) {
    if (const auto& known = s.onDisk()) readProject(s, std::string(known->path), "Reload", s.dialogFileName());
}

void parseProject(Session& s, const std::string& bytes, std::vector<std::string>* notes) {
    FormFill fill(s);
    try {
        parseInputFile(bytes, fill, notes);
    } catch (...) {
        fill.finish();
        throw;
    }
    fill.finish();
    if (!fill.fewer().empty()) {
        std::string text = fill.fewer();
        text[0] = 'T';
        s.hint(text);
    }
}

bool readInputFile(Session& s, const std::string& path, std::vector<std::string>* notes) {
    return s.guarded([&] {
        const ReadResult r = s.system.readFile(path, kMaxInputFileBytes);
        if (r.errorNumber) throw RuntimeError(r.errorNumber, r.error);
        s.setOnDisk(Session::OnDisk{path, r.bytes});
        parseProject(s, r.bytes, notes);
    });
}

} // namespace tw
