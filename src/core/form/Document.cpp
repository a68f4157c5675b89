// SPDX-License-Identifier: Apache-2.0
#include "core/form/Document.h"

#include <utility>

namespace tw {

void Document::setInput(int index, InputValue v) {
    const InputValue& old = project_.value(index);
    if (old == v) return;
    log_.push_back(change::Input{index, old, v});
    project_.setValue(index, std::move(v));
}

void Document::changeTable(const std::function<void(BentTable&)>& edit) {
    const BentTable before = project_.table();
    auto record = [&] {
        if (tableAt_) {
            std::get<change::Table>(log_[*tableAt_]).after = project_.table();
        } else if (!(before == project_.table())) {
            if (foldTable_) tableAt_ = log_.size();
            log_.push_back(change::Table{before, project_.table()});
        }
    };
    try {
        edit(project_.table());
    } catch (...) {
        record(); // the old grid kept what a failing operation had done
        throw;
    }
    record();
}

void Document::setBentCounter(std::int16_t n) {
    if (n == project_.bentCounter) return;
    log_.push_back(change::Counter{project_.bentCounter, n});
    project_.bentCounter = n;
}

void Document::setBentRegister(std::vector<std::string> numbers) {
    if (numbers == project_.bentRegister) return;
    log_.push_back(change::Register{project_.bentRegister, numbers});
    project_.bentRegister = std::move(numbers);
}

void Document::setSaveFailed(bool failed) {
    if (failed == project_.saveFailed) return;
    log_.push_back(change::Saved{project_.currentFile, project_.currentFile, project_.saveFailed, failed});
    project_.saveFailed = failed;
}

void Document::setCurrentFile(const std::string& path) {
    if (path == project_.currentFile) return;
    log_.push_back(change::Saved{project_.currentFile, path, project_.saveFailed, project_.saveFailed});
    project_.currentFile = path;
}

void Document::markSaved() {
    savedProject_ = project_;
    mark(change::Checkpoint{change::Checkpoint::Saved});
}

void Document::markUnsaved() {
    savedProject_.reset();
    mark(change::Checkpoint{change::Checkpoint::Unsaved});
}

ChangeLog Document::takeLog() {
    tableAt_.reset();
    return std::exchange(log_, {});
}

bool Document::putBack(const ChangeEntry& e, bool after) {
    if (const auto* c = std::get_if<change::Input>(&e)) {
        setInput(c->index, after ? c->after : c->before);
    } else if (const auto* n = std::get_if<change::Counter>(&e)) {
        setBentCounter(after ? n->after : n->before);
    } else if (const auto* r = std::get_if<change::Register>(&e)) {
        setBentRegister(after ? r->after : r->before);
    } else if (const auto* s = std::get_if<change::Saved>(&e)) {
        setCurrentFile(after ? s->fileAfter : s->fileBefore);
        setSaveFailed(after ? s->failedAfter : s->failedBefore);
    } else {
        return false;
    }
    return true;
}

} // namespace tw
