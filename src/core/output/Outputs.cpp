#include "core/output/Outputs.h"

#include "core/App.h"
#include "core/form/Forms.h"
#include "core/model/Choices.h"

#include <fstream>
#include <vector>

namespace tw {

namespace {

std::vector<std::string> readLines(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw RuntimeError(err::kFileNotFound, "File not found: " + file);
    std::vector<std::string> lines;
    std::string l;
    while (std::getline(in, l)) {
        if (!l.empty() && l.back() == '\r') l.pop_back();
        lines.push_back(std::move(l));
    }
    return lines;
}

void applyFileType(App& app) {
    Form& f = app.form(kFrmIPrinter);
    Control& types = f.at(Ctl::cmbFileTypes);
    Control& current = f.at(Ctl::txtCurrentFile);
    const std::string base = dottedBase(app);
    const std::string text = types.displayText();
    switch (types.listIndex) {
    case 0:
        current.text = base + "ebntc";
        f.at(Ctl::PrintIt).enabled = true;
        break;
    case 1:
        if (text == "Concrete Data") {
            current.text = base + "ibntc";
        } else {
            current.text = base + "e.dgn";
            f.at(Ctl::PrintIt).enabled = false;
        }
        break;
    case 2: current.text = base + (text == "Rebar Data" ? "ebntr" : "ebnt"); break;
    default: break;
    }
}

void printCommand(App& app) {
    const std::string concrete = dottedBase(app) + "ebntc";
    if (!std::ifstream(concrete, std::ios::binary)) {
        app.message("You need to run the program first!", kAppTitle, MsgButtons::OK, MsgIcon::None);
        return;
    }
    // The window is made anew each time: nothing of a previous one is kept.
    Form& f = app.form(kFrmIPrinter);
    f.at(Ctl::PrintIt).enabled = true;
    Control& types = f.at(Ctl::cmbFileTypes);
    types.items = {"Concrete Data", "DGN File"};
    types.listIndex = 0;
    applyFileType(app);
    const Form& main = app.main();
    f.left = main.left + main.width / 2 - f.width / 2;
    f.top = main.top + main.height / 2 - f.height / 2;
    app.showForm(kFrmIPrinter);
}

void openDrawing(App& app) {
    const std::string drawing = plainBase(app) + "e.dgn";
    const AssociatedProgram assoc = app.system.associatedProgram(drawing);
    if (assoc.status == AssociatedProgram::Status::NoAssociation) {
        app.message("You do not have a program assoiciated with the DGN file.", kAppTitle, MsgButtons::OK,
                    MsgIcon::None);
        return;
    }
    if (assoc.status == AssociatedProgram::Status::Unreadable) {
        app.message("Could not determing program associated with DGN image format.", kAppTitle, MsgButtons::OK,
                    MsgIcon::None);
        return;
    }
    // The association reads: program, blank, quoted "%1"; the program is what stands before.
    const auto percent = assoc.command.find('%');
    if (percent == std::string::npos || percent < 2)
        throw RuntimeError(err::kInvalidCall, "Invalid procedure call or argument (association " + assoc.command + ")");
    const std::string program = assoc.command.substr(0, percent - 2);
    if (!app.system.startDetached({program, {drawing}}))
        throw RuntimeError(err::kFileNotFound, "File not found: " + program);
}

void preview(App& app) {
    if (app.form(kFrmIPrinter).at(Ctl::cmbFileTypes).listIndex == 1) {
        openDrawing(app);
        return;
    }
    Control& view = app.form(kFrmViewTest).at(Ctl::rtOpen);
    for (const auto& line : readLines(dottedBase(app) + "ebntc"))
        view.text += line + "\r\n";
    app.showForm(kFrmViewTest);
}

void printListings(App& app) {
    const std::string base = dottedBase(app);
    const bool clean = concreteDataIsClean(base + "ebntc");
    if (!app.user.printerDialog()) return;
    // However the printing ends, the job it began is finished.
    struct JobEnd {
        UserPorts& user;
        ~JobEnd() { user.endPrintJob(); }
    } jobEnd{app.user};
    auto printOne = [&](const std::string& file) {
        PrintDocument doc;
        doc.file = file;
        // A line starting with "-1" would have started a new page; no single
        // character equals it, so pages break only where they are full.
        doc.lines = readLines(file);
        app.user.print(doc);
    };
    if (!clean) printOne(base + "ebntc");
    if (app.form(kFrmIPrinter).at(Ctl::cmbFileTypes).listIndex != 0) return;
    for (const char* ext : {"egen", "ebent", "eelev", "ebeam", "epile", "equan"}) {
        printOne(base + ext);
        app.user.processEvents();
    }
}

struct Sketch {
    Ctl label;
    BentType type;
    const char* picture;
    const char* key;
};

// The small picture and the key of the full-size one differ for one sketch
// ("cbwbw.jpg" with "cwbw"): that is the set of drawings as issued.
const Sketch kSketches[] = {
    {Ctl::lblBearingView, BentType::Intermediate, "/Drawing/bdapb.jpg", "bdapb"},
    {Ctl::lblBearingView, BentType::EndWithBackwall, "/Drawing/bdawbw.jpg", "bdawbw"},
    {Ctl::lblBearingView, BentType::EndWithoutBackwall, "/Drawing/bdawobw.jpg", "bdawobw"},
    {Ctl::lblCenterlineView, BentType::Intermediate, "/Drawing/cbpb.jpg", "cbpb"},
    {Ctl::lblCenterlineView, BentType::EndWithBackwall, "/Drawing/cbwbw.jpg", "cwbw"},
    {Ctl::lblCenterlineView, BentType::EndWithoutBackwall, "/Drawing/cbwobw.jpg", "cbwobw"},
    {Ctl::lblElevationView, BentType::Intermediate, "/Drawing/epb.jpg", "epb"},
    {Ctl::lblElevationView, BentType::EndWithBackwall, "/Drawing/ewbw.jpg", "ewbw"},
    {Ctl::lblElevationView, BentType::EndWithoutBackwall, "/Drawing/ewobw.jpg", "ewobw"},
    {Ctl::lblViewCenterLine, BentType::Intermediate, "/Drawing/cpb.jpg", "cpb"},
    {Ctl::lblViewCenterLine, BentType::EndWithBackwall, "/Drawing/cwbw.jpg", "cwbw"},
    {Ctl::lblViewCenterLine, BentType::EndWithoutBackwall, "/Drawing/cwobw.jpg", "cwobw"},
    {Ctl::lblViewDimension, BentType::Intermediate, "/Drawing/bdpb.jpg", "bdpb"},
    {Ctl::lblViewDimension, BentType::EndWithBackwall, "/Drawing/bdwbw.jpg", "bdwbw"},
    {Ctl::lblViewDimension, BentType::EndWithoutBackwall, "/Drawing/bdwobw.jpg", "bdwobw"},
};

void showSketch(App& app, Ctl label) {
    const auto type = bentTypeOf(app.text(Ctl::cboTybent));
    if (!type) return;
    for (const auto& s : kSketches) {
        if (s.label != label || s.type != *type) continue;
        Form& view = app.form(kFrmPicView);
        const std::string picture = app.programDir + s.picture;
        app.user.pictureLoaded("picViewImage", picture);
        // The picture box remembers the full-size picture its double-click opens.
        view.at(Ctl::picViewImage).text = std::string(s.key) + ".tif";
        view.caption = sketchTitle(s.key);
        view.left = (app.user.screenWidthTwips() - view.width) / 2;
        view.top = (app.user.screenHeightTwips() - view.height) / 2;
        app.showForm(kFrmPicView);
        return;
    }
}

} // namespace

std::string dottedBase(const App& app) {
    const auto dot = app.currentFile.find('.');
    return dot == std::string::npos ? app.currentFile : app.currentFile.substr(0, dot + 1);
}

std::string plainBase(const App& app) {
    const auto dot = app.currentFile.find('.');
    return dot == std::string::npos ? app.currentFile : app.currentFile.substr(0, dot);
}

bool concreteDataIsClean(const std::string& concreteFile) {
    std::ifstream in(concreteFile, std::ios::binary);
    if (!in) return true;
    // Read as comma-separated items, as the listing is; the marker holds
    // neither a comma nor a line break, so it never spans two items.
    std::string item;
    while (std::getline(in, item, ','))
        if (item.find("ERROR LINE") != std::string::npos) return false;
    return true;
}

std::optional<SketchName> sketchNamed(const std::string& name) {
    for (const auto& s : kSketches)
        if ("/Drawing/" + name + ".jpg" == s.picture) return SketchName{s.label, s.type};
    for (const auto& s : kSketches)
        if (name == s.key) return SketchName{s.label, s.type};
    return std::nullopt;
}

std::string sketchTitle(const std::string& key) {
    // First match wins: the second "cwbw" and "cpb" entries are never reached.
    static const std::pair<const char*, const char*> titles[] = {
        {"cwobw", "Tarnwick without Backwall Centerlines Sketch"},
        {"cwbw", "Pile End Bent with Backwall Centerlines Sketch"},
        {"cpb", "Pile Intermediate Bent Centerlines Sketch"},
        {"bdwobw", "Tarnwick without Backwall Dimension Sketch "},
        {"bdwbw", "Pile End Bent with Backwall Dimension Sketch"},
        {"bdpb", "Pile Intermediate Bent Dimension Sketch"},
        {"ewobw", "Tarnwick without Backwall Elevation Sketch"},
        {"cwbw", "Pile End Bent with Backwall Elevation Sketch"},
        {"cpb", "Pile Intermediate Bent Elevation"},
        {"bdawobw", "Tarnwick without Backwall Bearing Dimension and Beam Angle Sketch"},
        {"bdawbw", "Pile End Bent with Backwall Bearing Dimension and Beam Angle Sketch"},
        {"bdapb", "Pile Intermediate Bent Bearing Dimension and Beam Angle Sketch"},
        {"cbwobw", "Tarnwick without Backwall Centerline Beam Sketch"},
        {"cbwbw", "Pile End Bent with Backwall Centerline Beam Sketch"},
        {"cbpb", "Pile Intermediate Bent Centerline Beam Sketch"},
    };
    for (const auto& [k, title] : titles)
        if (key == k) return title;
    return "";
}

void installOutputs(App& app) {
    app.on(kFrmMain, Ctl::mnuPrint, Event::Click, [](App& a, EventArgs&) { a.guarded([&] { printCommand(a); }); });
    app.on(kFrmIPrinter, Ctl::cmbFileTypes, Event::Change, [](App& a, EventArgs&) { applyFileType(a); });
    app.on(kFrmIPrinter, Ctl::printPreview, Event::Click, [](App& a, EventArgs&) { a.guarded([&] { preview(a); }); });
    app.on(kFrmIPrinter, Ctl::PrintIt, Event::Click, [](App& a, EventArgs&) { a.guarded([&] { printListings(a); }); });
    app.on(kFrmIPrinter, Ctl::printCancel, Event::Click, [](App& a, EventArgs&) { a.closeForm(kFrmIPrinter); });
    app.on(kFrmViewTest, Ctl::cmdQuit, Event::Click, [](App& a, EventArgs&) { a.closeForm(kFrmViewTest); });
    // The preview window is made anew each time it loads: its text goes with it.
    app.onUnload(kFrmViewTest, [](App& a) { a.form(kFrmViewTest).at(Ctl::rtOpen).text.clear(); });
    for (Ctl label : {Ctl::lblBearingView, Ctl::lblCenterlineView, Ctl::lblElevationView, Ctl::lblViewCenterLine,
                      Ctl::lblViewDimension})
        app.on(kFrmMain, label, Event::Click, [label](App& a, EventArgs&) { showSketch(a, label); });
    app.on(kFrmPicView, Ctl::picViewImage, Event::DblClick, [](App& a, EventArgs&) {
        a.system.shellOpen(a.form(kFrmPicView).at(Ctl::picViewImage).text, "", a.programDir + "/Drawing");
    });
}

} // namespace tw
