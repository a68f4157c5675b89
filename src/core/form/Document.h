// SPDX-License-Identifier: Apache-2.0
// The engineer's work apart from any form: the project value, what its file
// held when it was last read or written, and the record of every change made
// to either since the last look (the history undoes whole steps from that
// record). Each setter records what it changed; none runs a handler.
#pragma once

#include "core/form/Changes.h"
#include "core/model/Project.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tw {

class Document {
  public:
    const Project& project() const { return project_; }
    const BentTable& table() const { return project_.table(); }

    void setInput(int index, InputValue v);
    // The bent table, changed by `edit`; what it did is recorded even when it fails.
    void changeTable(const std::function<void(BentTable&)>& edit);
    void setBentCounter(std::int16_t n);
    void setBentRegister(std::vector<std::string> numbers);
    void setSaveFailed(bool failed);
    void setCurrentFile(const std::string& path);

    // The file dialog's file name: the working copy of the current file path.
    const std::string& dialogFileName() const { return dialogFileName_; }
    void setDialogFileName(const std::string& path) { dialogFileName_ = path; }
    // Where the last Run put the engine's outputs: their base name, folder included.
    const std::string& runOutputBase() const { return runOutputBase_; }
    void setRunOutputBase(const std::string& base) { runOutputBase_ = base; }

    // The bytes of the file last read or written, as they were then: a file
    // changed since by someone else is told from one that is as we left it.
    struct OnDisk {
        std::string path;
        std::string bytes;
    };
    const std::optional<OnDisk>& onDisk() const { return onDisk_; }
    void setOnDisk(std::optional<OnDisk> d) { onDisk_ = std::move(d); }

    // --- The record of changes.
    void mark(ChangeEntry mark) { log_.push_back(std::move(mark)); }
    // While on, the table's changes extend the first one logged: a paste of
    // n rows keeps one table before and after, not n of them.
    void foldTableChanges(bool on) {
        foldTable_ = on;
        tableAt_.reset();
    }
    // The project as it stands is what its file holds (a save, an open, a
    // new project), or what no file holds (a save cut short, a recovered
    // project); the history starts afresh.
    void markSaved();
    void markUnsaved();
    void startAfresh() { mark(change::Checkpoint{change::Checkpoint::Fresh}); }
    // The project as it was last saved, opened or started afresh; none while no file holds it.
    const std::optional<Project>& savedProject() const { return savedProject_; }
    // The project holds changes that no file holds.
    bool unsavedChanges() const { return !savedProject_ || !savedProject_->sameWork(project_); }
    // What changed since the last call.
    ChangeLog takeLog();
    // Puts back the value before (or after) one entry about the project;
    // false for an entry about anything else (or the table, which the
    // caller changes so that what shows it follows).
    bool putBack(const ChangeEntry& e, bool after);

  private:
    Project project_;
    std::optional<Project> savedProject_;
    std::optional<OnDisk> onDisk_;
    std::string dialogFileName_;
    std::string runOutputBase_;
    ChangeLog log_;
    bool foldTable_ = false;
    std::optional<std::size_t> tableAt_; // the entry the table's changes extend
};

// The table's changes folded into one while it lives (a paste of many rows).
class FoldedTableChanges {
  public:
    explicit FoldedTableChanges(Document& doc) : doc_(doc) { doc_.foldTableChanges(true); }
    ~FoldedTableChanges() { doc_.foldTableChanges(false); }
    FoldedTableChanges(const FoldedTableChanges&) = delete;
    FoldedTableChanges& operator=(const FoldedTableChanges&) = delete;

  private:
    Document& doc_;
};

} // namespace tw
