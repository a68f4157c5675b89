// SPDX-License-Identifier: Apache-2.0
#include "core/form/Recovery.h"

#include "core/Quoting.h"
#include "core/form/MainForm.h"
#include "core/form/PutAside.h"
#include "core/form/Session.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Columns.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <map>

namespace tw {

namespace {

// The line where what the form holds beyond the input file begins.
constexpr const char* kMarker = "[Tarnwick recovery 1]";

std::string words(const std::vector<std::string>& texts) {
    std::string line;
    for (const auto& t : texts)
        line += ' ' + quote(t);
    return line;
}

// Everything a recovery file holds beyond the input file, read before any of it reaches the form.
struct Kept {
    std::string currentFile;
    std::string dialogFileName;
    int counter = 0;
    std::vector<std::string> bentRegister;
    int columns = 0;
    int columnsLine = 0;
    std::vector<std::vector<std::string>> rows;
    std::map<CtlId, std::string> inputs;
};

[[noreturn]] void unreadable(int line, const std::string& why) {
    throw RuntimeError(err::kInvalidProperty, "Invalid file format: the recovery file cannot be read (line " +
                                                  std::to_string(line) + ": " + printableText(why) + ")");
}

int number(const std::string& text, int line) {
    int v = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (ec != std::errc() || end != text.data() + text.size() || v < 0)
        unreadable(line, "\"" + text + "\" is no count");
    return v;
}

bool isChoice(const CtlId& id) { return inputRule(id).kind == InputKind::Choice; }

// A choice's kept text, or the one a new form starts with.
std::string choiceText(const Kept& k, Ctl ctl) {
    if (const auto it = k.inputs.find(CtlId(ctl)); it != k.inputs.end()) return it->second;
    const auto items = choiceTexts(ctl);
    const int index = inputRule(CtlId(ctl)).defaultIndex;
    return index >= 0 && index < static_cast<int>(items.size()) ? items[static_cast<size_t>(index)] : std::string();
}

// What a session writes holds together: the table's columns are the layout
// of its bent type and beams, as every choice and every read lays them out.
void checkColumns(const Kept& k) {
    if (k.columnsLine == 0) return;
    const std::string type = choiceText(k, Ctl::cboTybent), beams = choiceText(k, Ctl::cboNoBeam);
    const auto bentType = bentTypeOf(type);
    if (!bentType) return; // no layout for it: the table keeps the reset's
    const int want = columnCount(*bentType, static_cast<int>(leadingNumber(beams)));
    if (k.columns != want)
        unreadable(k.columnsLine, "the bent table of a " + type + " with " + beams + " beams has " +
                                      std::to_string(want) + " columns, not " + std::to_string(k.columns));
}

Kept parse(const std::string& recovery) {
    const std::string marker = std::string("\n") + kMarker;
    const auto at = recovery.rfind(marker);
    if (at == std::string::npos) unreadable(0, "it is not a recovery file");
    Kept k;
    int lineNo = 0;
    size_t pos = at + 1;
    while (pos < recovery.size()) {
        size_t end = recovery.find('\n', pos);
        if (end == std::string::npos) end = recovery.size();
        std::string line = recovery.substr(pos, end - pos);
        pos = end + 1;
        ++lineNo;
        if (lineNo == 1) continue; // the marker
        std::string error;
        const auto split = splitScriptLine(line, error);
        if (!split) unreadable(lineNo, error);
        if (split->empty()) continue;
        std::vector<std::string> w;
        for (const auto& word : *split)
            w.push_back(word.text);
        const std::string& key = w[0];
        auto need = [&](size_t n) {
            if (w.size() != n) unreadable(lineNo, key + " takes " + std::to_string(n - 1) + " word(s)");
        };
        if (key == "file") {
            need(2);
            k.currentFile = w[1];
        } else if (key == "dialog") {
            need(2);
            k.dialogFileName = w[1];
        } else if (key == "counter") {
            need(2);
            k.counter = number(w[1], lineNo);
            if (k.counter > INT16_MAX) unreadable(lineNo, "the bent counter is out of range");
        } else if (key == "register") {
            k.bentRegister.assign(w.begin() + 1, w.end());
        } else if (key == "columns") {
            need(2);
            if (k.columnsLine) unreadable(lineNo, "the bent table's columns are given twice");
            k.columns = number(w[1], lineNo);
            if (k.columns < 1) unreadable(lineNo, "the bent table has no columns");
            k.columnsLine = lineNo;
        } else if (key == "row") {
            if (!k.columnsLine) unreadable(lineNo, "a row of the bent table comes before its columns");
            if (static_cast<int>(w.size()) - 1 != k.columns) unreadable(lineNo, "a row of the bent table is not whole");
            k.rows.emplace_back(w.begin() + 1, w.end());
        } else if (key == "input") {
            need(3);
            const auto id = parseCtlId(w[1]);
            if (!id || !isInput(id->ctl)) unreadable(lineNo, "no input is named " + w[1]);
            // Every choice a session holds is an item of its list.
            if (isChoice(*id) && !w[2].empty()) {
                const auto items = choiceTexts(id->ctl);
                if (std::find(items.begin(), items.end(), w[2]) == items.end())
                    unreadable(lineNo, quote(w[2]) + " is not an item of " + w[1]);
            }
            k.inputs[*id] = w[2];
        }
        // Anything else was written by a later version, and is passed over.
    }
    checkColumns(k);
    return k;
}

// A choice by its text, its change handler running even where the choice
// stays, as Open sets them: the sections shown follow the last handler, so
// a restored project shows what the same project opened from its file
// shows. A text the list does not hold stands as it was kept.
void choose(Session& s, const CtlId& id, const std::string& text) {
    const auto& items = s.ctl(id).items;
    for (size_t i = 0; i < items.size(); ++i)
        if (items[i] == text) {
            s.setListIndex(id, static_cast<int>(i));
            return;
        }
    s.showComboText(id, text);
}

} // namespace

std::string composeRecovery(const Session& s) { return composeRecovery(s, s.dialogFileName()); }

std::string composeRecovery(const Session& s, const std::string& dialogFileName) {
    const Project& p = s.project();
    std::string out = describeInputFile(p);
    auto line = [&](const std::string& l) { out += l + "\r\n"; };
    line(kMarker);
    line("file " + quote(p.currentFile));
    line("dialog " + quote(dialogFileName));
    line("counter " + std::to_string(p.bentCounter));
    line("register" + words(p.bentRegister));
    line("columns " + std::to_string(p.table().cols()));
    for (int r = 1; r < p.table().rows(); ++r)
        line("row" + words(p.table().rowCells(r)));
    for (int i = 0; i < inputCount(); ++i)
        line("input " + toString(projectInputs()[static_cast<size_t>(i)]) + ' ' + quote(p.value(i).text));
    return out;
}

RecoverySummary summarizeRecovery(const std::string& recovery) {
    try {
        Kept k = parse(recovery);
        return {std::move(k.currentFile), std::move(k.inputs[CtlId(Ctl::txtProjectInfo, 0)]),
                static_cast<int>(k.rows.size()), {}};
    } catch (const RuntimeError& e) {
        return {{}, {}, 0, e.description()};
    }
}

std::string recoveredInputFile(const std::string& recovery) {
    const auto at = recovery.rfind(std::string("\n") + kMarker);
    return at == std::string::npos ? std::string() : recovery.substr(0, at + 1);
}

void restoreRecovery(Session& s, const std::string& recovery) {
    const Kept k = parse(recovery);
    putAsideUnsaved(s, "Restore");
    resetForm(s);
    // The number of beams and the bent type first: their handlers lay out the
    // sections and the bent table and give defaults that the kept texts override.
    const Ctl layout[] = {Ctl::cboDrScale, Ctl::cboNoBeam, Ctl::cboTybent};
    for (Ctl first : layout)
        if (auto it = k.inputs.find(first); it != k.inputs.end()) choose(s, first, it->second);
    for (const bool choices : {true, false})
        for (const auto& id : projectInputs()) {
            const auto it = k.inputs.find(id);
            if (it == k.inputs.end() || isChoice(id) != choices) continue;
            if (!choices)
                s.setText(id, it->second);
            else if (std::find(std::begin(layout), std::end(layout), id.ctl) == std::end(layout))
                choose(s, id, it->second);
        }

    s.changeTable([&](BentTable& g) {
        if (k.columns > 0 && g.cols() != k.columns) g.setCols(k.columns);
        g.setRows(static_cast<int>(k.rows.size()) + 1);
        for (size_t r = 0; r < k.rows.size(); ++r)
            for (int c = 0; c < g.cols(); ++c)
                g.setCell(static_cast<int>(r) + 1, c, k.rows[r][static_cast<size_t>(c)]);
    });
    s.setBentCounter(static_cast<std::int16_t>(k.counter));
    s.setBentRegister(k.bentRegister);

    s.setDialogFileName(k.currentFile);
    setMainCaption(s, !k.currentFile.empty());
    s.setDialogFileName(k.dialogFileName);
    // Whatever the current file holds, it is not this.
    s.markUnsaved();
}

} // namespace tw
