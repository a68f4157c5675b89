// SPDX-License-Identifier: Apache-2.0
#include "core/output/Outputs.h"

#include "core/EngineListing.h"
#include "core/drawing/SketchTable.h"
#include "core/form/Session.h"
#include "core/model/Choices.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace tw {

namespace {

// Only a regular file of a listing's size: a pipe would never end, a device or a huge file never fit.
std::vector<std::string> readLines(Session& s, const std::string& file) {
    const ReadResult r = s.system.readFile(file, kMaxListingBytes);
    if (r.errorNumber) throw RuntimeError(r.errorNumber, r.error);
    return listingLines(r.bytes);
}

const Target kTypes(FormId::Printer, Ctl::cmbFileTypes);

// Where the desktop has no program for drawings, the program has its own viewer.
void offerViewer(Session& s, const std::string& drawing) {
    s.notice("No program here opens DGN drawings. Open the drawing in Tarnwick's viewer: " + drawing);
    s.user.offerDrawingViewer(drawing);
}

void openDrawing(Session& s) {
    const std::string drawing = plainBase(s.project().currentFile) + "e.dgn";
    const AssociatedProgram assoc = s.system.associatedProgram(drawing);
    if (assoc.status == AssociatedProgram::Status::NoAssociation) {
        s.message("You do not have a program assoiciated with the DGN file.", kAppTitle, MsgButtons::OK, MsgIcon::None);
        offerViewer(s, drawing);
        return;
    }
    if (assoc.status == AssociatedProgram::Status::Unreadable) {
        s.message("Could not determing program associated with DGN image format.", kAppTitle, MsgButtons::OK,
                  MsgIcon::None);
        offerViewer(s, drawing);
        return;
    }
    // The association reads: program, blank, quoted "%1"; the program is what stands before.
    const auto percent = assoc.command.find('%');
    if (percent == std::string::npos || percent < 2)
        throw RuntimeError(err::kInvalidCall, "Invalid procedure call or argument (association " + assoc.command + ")");
    const std::string program = assoc.command.substr(0, percent - 2);
    if (!s.system.startDetached({program, {drawing}}))
        throw RuntimeError(err::kFileNotFound, "File not found: " + program);
}

} // namespace

std::vector<std::string> listingLines(std::string_view bytes) {
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view l = bytes.substr(0, end);
        if (!l.empty() && l.back() == '\r') l.remove_suffix(1);
        lines.emplace_back(l);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return lines;
}

std::vector<RunOutput> runOutputs(const Session& s) {
    std::string base = s.runOutputBase();
    if (base.empty() && !s.project().currentFile.empty()) base = plainBase(s.project().currentFile);
    if (base.empty()) return {};
    static const std::pair<const char*, const char*> kinds[] = {
        {"Concrete data", ".ebntc"}, {"Rebar data", ".ebntr"},       {"General output", ".egen"},
        {"Bent output", ".ebent"},   {"Elevation output", ".eelev"}, {"Beam output", ".ebeam"},
        {"Pile output", ".epile"},   {"Quantities", ".equan"},
    };
    std::vector<RunOutput> outputs;
    for (const auto& [what, suffix] : kinds)
        outputs.push_back({what, base + suffix, false});
    outputs.push_back({"Drawing", base + "e.dgn", true});
    return outputs;
}

void applyFileType(Session& s) {
    const Target current(FormId::Printer, Ctl::txtCurrentFile);
    const Target printIt(FormId::Printer, Ctl::PrintIt);
    const std::string base = dottedBase(s.project().currentFile);
    const std::string text = s.text(kTypes);
    switch (s.listIndex(kTypes)) {
    case 0:
        s.setText(current, base + "ebntc");
        s.setEnabled(printIt, true);
        break;
    case 1:
        if (text == "Concrete Data") {
            s.setText(current, base + "ibntc");
        } else {
            s.setText(current, base + "e.dgn");
            s.setEnabled(printIt, false);
        }
        break;
    case 2: s.setText(current, base + (text == "Rebar Data" ? "ebntr" : "ebnt")); break;
    default: break;
    }
}

void printCommand(Session& s) {
    const std::string concrete = dottedBase(s.project().currentFile) + "ebntc";
    // Only whether it is there: opening it could wait on a pipe, and the preview says what else is wrong.
    std::error_code ec;
    if (std::filesystem::status(concrete, ec).type() == std::filesystem::file_type::not_found) {
        s.message("You need to run the program first!", kAppTitle, MsgButtons::OK, MsgIcon::None);
        return;
    }
    // The window is made anew each time: nothing of a previous one is kept.
    s.setEnabled(Target(FormId::Printer, Ctl::PrintIt), true);
    s.setItems(kTypes, {"Concrete Data", "DGN File"});
    s.setListIndex(kTypes, 0);
    applyFileType(s);
    const Form& main = s.main();
    const Form& f = s.form(FormId::Printer);
    s.placeForm(FormId::Printer, main.left + main.width / 2 - f.width / 2, main.top + main.height / 2 - f.height / 2);
    s.showForm(FormId::Printer);
}

void previewOutput(Session& s) {
    if (s.listIndex(kTypes) == 1) {
        openDrawing(s);
        return;
    }
    const Target view(FormId::Preview, Ctl::rtOpen);
    std::string text = s.text(view);
    for (const auto& line : readLines(s, dottedBase(s.project().currentFile) + "ebntc"))
        text += line + "\r\n";
    s.setText(view, text);
    s.showForm(FormId::Preview);
}

void printOutputs(Session& s) {
    const std::string base = dottedBase(s.project().currentFile);
    const bool clean = concreteDataIsClean(s.system, base + "ebntc");
    if (!s.user.printerDialog()) return;
    // However the printing ends, the job it began is finished.
    struct JobEnd {
        UserPorts& user;
        ~JobEnd() { user.endPrintJob(); }
    } jobEnd{s.user};
    auto printOne = [&](const std::string& file) {
        PrintDocument doc;
        doc.file = file;
        // A line starting with "-1" would have started a new page; no single
        // character equals it, so pages break only where they are full.
        doc.lines = readLines(s, file);
        s.user.print(doc);
    };
    if (!clean) printOne(base + "ebntc");
    if (s.listIndex(kTypes) != 0) return;
    for (const char* ext : {"egen", "ebent", "eelev", "ebeam", "epile", "equan"}) {
        printOne(base + ext);
        s.user.processEvents();
    }
}

std::string dottedBase(const std::string& currentFile) {
    const auto dot = currentFile.find('.');
    return dot == std::string::npos ? currentFile : currentFile.substr(0, dot + 1);
}

std::string plainBase(const std::string& currentFile) {
    const auto dot = currentFile.find('.');
    return dot == std::string::npos ? currentFile : currentFile.substr(0, dot);
}

void showSketch(Session& s, Ctl label) {
    const auto type = bentTypeOf(s.text(Ctl::cboTybent));
    if (!type) return;
    for (const auto& sk : sketchTable()) {
        if (sk.label != label || sk.type != *type) continue;
        const Target picture(FormId::Picture, Ctl::picViewImage);
        s.user.pictureLoaded("picViewImage", s.programDir + sk.picture);
        // The picture box remembers the full-size picture its double-click opens.
        s.setText(picture, std::string(sk.key) + ".tif");
        s.setFormCaption(FormId::Picture, sketchTitle(sk.key));
        const Form& view = s.form(FormId::Picture);
        s.placeForm(FormId::Picture, (s.user.screenWidthTwips() - view.width) / 2,
                    (s.user.screenHeightTwips() - view.height) / 2);
        s.showForm(FormId::Picture);
        return;
    }
}

void openFullSizeSketch(Session& s) {
    s.system.shellOpen(s.text(Target(FormId::Picture, Ctl::picViewImage)), "", s.programDir + "/Drawing");
}

} // namespace tw
