// SPDX-License-Identifier: Apache-2.0
// Design-time state of every form: kinds, captions, item lists, positions.
#include "core/form/Forms.h"

#include "core/form/Session.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"

#include "tarnwick_version.h"
#include <algorithm>
#include <atomic>

namespace tw {

std::string versionText() {
    return "Version " + std::to_string(TW_VERSION_MAJOR) + "." + std::to_string(TW_VERSION_MINOR) + "." +
           std::to_string(TW_VERSION_PATCH);
}

const std::vector<std::string>& tabCaptions() {
    static const std::vector<std::string> captions = {
        "General", "Cap Dimensions", "Wingwall Dimensions and Angles", "Bearing Data", "Pile Type", "Tarnwick"};
    return captions;
}

namespace {

// Row pitch of the scrolled row panes, and how many rows the outer pane shows.
constexpr int kRowPitch = 360;
constexpr int kVisibleRows = 10;

class Builder {
  public:
    explicit Builder(Form& f) : f_(f) {}

    Control& add(Ctl c, Kind k, int index = -1) {
        Control ctl;
        ctl.kind = k;
        if (k == Kind::ComboBox) ctl.items = choiceTexts(c);
        return f_.add(CtlId(c, index), std::move(ctl));
    }
    void label(Ctl c, const std::string& caption = {}) {
        if (ctlArraySize(c) == 0) {
            add(c, Kind::Label).caption = caption;
            return;
        }
        for (int i = 0; i < ctlArraySize(c); ++i)
            add(c, Kind::Label, i).caption = caption;
    }
    Control& frame(Ctl c, const std::string& caption) {
        auto& ctl = add(c, Kind::Frame);
        ctl.caption = caption;
        return ctl;
    }
    Control& button(Ctl c, const std::string& caption, int index = -1) {
        auto& ctl = add(c, Kind::Button, index);
        ctl.caption = caption;
        return ctl;
    }
    Control& menu(Ctl c, const std::string& caption) {
        auto& m = add(c, Kind::Menu);
        m.caption = caption;
        return m;
    }

  private:
    Form& f_;
};

// Builds a form of this caption and size (twips); `controls` adds its controls.
template <class Controls> Form buildForm(FormId id, std::string caption, int width, int height, Controls controls) {
    Form f(id);
    f.caption = std::move(caption);
    f.width = width;
    f.height = height;
    Builder b(f);
    controls(b);
    return f;
}

// Text boxes and combo boxes, as the table of inputs has them.
void addInputs(Builder& b) {
    for (Ctl c : inputControls()) {
        const int items = std::max(ctlArraySize(c), 1);
        for (int i = 0; i < items; ++i) {
            const CtlId id = ctlArraySize(c) > 0 ? CtlId(c, i) : CtlId(c);
            const bool isChoice = inputRule(id).kind == InputKind::Choice;
            b.add(c, isChoice ? Kind::ComboBox : Kind::TextBox, id.index).maxLength = inputRule(id).maxLength;
        }
    }
}

// Prompts, unit labels and the sketch labels, with their design-time captions.
const std::pair<Ctl, const char*> kLabelCaptions[] = {
    {Ctl::lblCCapLength, "Enter the length of the cap measured along"},
    {Ctl::lblCCapLength1, "the front face of the cap"},
    {Ctl::Label12, "feet"},
    {Ctl::lblCCWingPwall, "Are the wingwalls parallel to each other?"},
    {Ctl::lblCCNoWinwall, "Select the number of pile boxes per wingwall"},
    {Ctl::lblCCBatPile, "Are battered piles to be drawn?"},
    {Ctl::Label10, "Is the top left wingwall level?"},
    {Ctl::Label11, "Is the top right wingwall level?"},
    {Ctl::Label35, "Enter the bottom left cap elevation"},
    {Ctl::Label36, "Enter the bottom right cap elevation"},
    {Ctl::Label37, "feet"},
    {Ctl::lblPileD1, "Enter the dimension from the front face of cap to the centerline of the second pile box"},
    {Ctl::Label26, "feet"},
    {Ctl::lblPileD2, "Enter the dimension from the front face of cap to the centerline of the third pile box"},
    {Ctl::Label27, "feet"},
    {Ctl::Label80, "Battered Pile"},
    {Ctl::Label81, "Spacing (feet)"},
    {Ctl::lblWingWallLAngle, "Enter the wingwall angle"},
    {Ctl::lblWingWallRAngle, "Enter the right wingwall angle"},
    {Ctl::lblBearingView, "Bearing Dimension and Beam Angle Sketch"},
    {Ctl::lblCenterlineView, "Centerline Beam Sketch"},
    {Ctl::lblElevationView, "Elevation Sketch"},
    {Ctl::lblViewCenterLine, "Centerlines Sketch"},
    {Ctl::lblViewDimension, "Dimension Sketch"},
};

void addLabels(Builder& b, Form& f) {
    for (const auto& [c, caption] : kLabelCaptions)
        b.label(c, caption);
    for (Ctl c : {Ctl::lblWingLAngle, Ctl::lblWingRAngle, Ctl::lblCapStep, Ctl::lblEStepPI, Ctl::lblBeamAngleIndex})
        b.label(c);
    // Numbered rows and the marks of the beam angles' units.
    for (Ctl c : {Ctl::lblBatterPile, Ctl::lblCenterline})
        for (int i = 0; i < ctlArraySize(c); ++i)
            b.add(c, Kind::Label, i).caption = std::to_string(i + 1);
    const std::pair<Ctl, const char*> marks[] = {
        {Ctl::lblBeamAngleH, kDegreeMark}, {Ctl::lblBeamAngleM, kMinuteMark}, {Ctl::lblBeamAngleS, kSecondMark}};
    for (const auto& [c, mark] : marks)
        for (int i = 0; i < ctlArraySize(c); ++i)
            b.add(c, Kind::Label, i).caption = mark;
    f.at(Ctl::lblCCapLength).top = 4500;
    f.at(Ctl::Label12).top = 4620;
}

struct FrameAt {
    Ctl ctl;
    const char* caption;
    std::optional<int> top, left;
};
const FrameAt kFrames[] = {
    {Ctl::Frame1, "General", {}, {}},
    {Ctl::Frame2, "Cap Dimensions", {}, {}},
    {Ctl::Frame3, "Fillet Dimensions", {}, {}},
    {Ctl::Frame4, "Cap Steps", 2880, {}},
    {Ctl::Frame5, "Wingwall Dimensions and Angles", {}, {}},
    {Ctl::Frame6, "Pile Box Dimension", {}, {}},
    {Ctl::Frame7, "Backwall and End Post Dimension", 7080, 120},
    {Ctl::Frame13, "Top of Backwall Elevations and End Post", {}, {}},
    {Ctl::Frame18, "Battered Piles", {}, {}},
    {Ctl::Frame12, "Top Left Wingwall Level", {}, 0},
    {Ctl::Frame11, "Is top left wingwall level - Yes", {}, 4680},
    {Ctl::Frame10, "Top Right Wingwall Level", {}, 0},
    {Ctl::Frame9, "Is top right wingwall level - Yes", {}, 4680},
};

void addFrames(Builder& b) {
    for (const auto& fr : kFrames) {
        Control& c = b.frame(fr.ctl, fr.caption);
        c.top = fr.top;
        c.left = fr.left;
    }
}

// The tabs, the bent table with its buttons, and the four scrolled panes.
void addContainers(Builder& b, Form& f) {
    auto& tab = b.add(Ctl::SSTab1, Kind::Tab);
    tab.items = tabCaptions();
    tab.value = 0;
    b.add(Ctl::MSFlexGrid1, Kind::Grid).top = 4200;
    b.add(Ctl::Toolbar1, Kind::Toolbar);
    b.add(Ctl::CommonDialog1, Kind::Dialog);
    const char* quantity[] = {"&Add", "&Insert", "R&eplace", "&Edit", "&Delete", "&Delete All"};
    for (int i = 0; i < 6; ++i) {
        auto& c = b.button(Ctl::cmdQuantity, quantity[i], i);
        c.top = 3720;
        c.left = 120 + i * 1320;
    }
    auto& up = b.button(Ctl::cmdMoveUp, "Move up");
    up.top = 4200;
    up.left = 13680;
    auto& down = b.button(Ctl::cmdMoveDown, "Move down");
    down.top = 4920;
    down.left = 13680;
    f.at(Ctl::txtCapLength).top = 4560;

    // Each pane: an inner box taller than the visible outer one.
    auto pane = [&](Ctl bar, Ctl outer, Ctl inner, int rows, int visibleRows) {
        b.add(bar, Kind::ScrollBar);
        b.add(outer, Kind::Picture).height = visibleRows * kRowPitch;
        auto& in = b.add(inner, Kind::Picture);
        in.height = rows * kRowPitch;
        in.top = 0;
    };
    pane(Ctl::vbarscrollerCapStep, Ctl::picOutterCap, Ctl::picInnerCap, 20, kVisibleRows);
    pane(Ctl::vbarscrollerStepElevation, Ctl::picOutterStep, Ctl::picInnerStep, 20, kVisibleRows);
    pane(Ctl::vbarscrollerWingwall, Ctl::picOutterWingwall, Ctl::picInnerWingWall, 8, 5);
    pane(Ctl::vbarscrollerBeamAngle, Ctl::picOutterBeamAngle, Ctl::picInnerBeamAngle, 20, kVisibleRows);
    f.at(Ctl::vbarscrollerCapStep).top = 3000;
}

void addMenus(Builder& b) {
    const std::pair<Ctl, const char*> menus[] = {
        {Ctl::mnuFile, "&File"},
        {Ctl::mnuNew, "&New"},
        {Ctl::mnuOpen, "&Open"},
        {Ctl::mnuSave, "&Save"},
        {Ctl::mnuSaveAs, "S&ave As..."},
        {Ctl::mnuBreak1, "-"},
        {Ctl::mnuPrint, "&Print"},
        {Ctl::mnuBreak2, "-"},
        {Ctl::mnuRun, "R&un"},
        {Ctl::mnuBreak3, "-"},
        {Ctl::mnuExit, "E&xit"},
        {Ctl::mnuHelp, "&Help"},
        {Ctl::mnuTarnwickHelp, "&Tarnwick Help"},
        {Ctl::mnuBreak5, "-"},
        {Ctl::mnuAbout, "&About"},
        {Ctl::mnuEdit, "&Edit"},
        {Ctl::mnuUndo, "Undo"},
        {Ctl::mnuRedo, "Redo"},
    };
    for (const auto& [c, caption] : menus)
        // Nothing to undo or redo yet.
        b.menu(c, caption).enabled = c != Ctl::mnuUndo && c != Ctl::mnuRedo;
    // The recent projects show once there are some.
    for (int i = 0; i < ctlArraySize(Ctl::mnuRecentFile); ++i)
        b.add(Ctl::mnuRecentFile, Kind::Menu, i).visible = false;
}

Form buildMain() {
    Form f = buildForm(FormId::Main, kAppTitle, 15360, 10800, [](Builder& b) {
        addInputs(b);
        addFrames(b);
        addMenus(b);
    });
    Builder b(f);
    addLabels(b, f);
    addContainers(b, f);
    return f;
}

const char* kDisclaimer =
    "Tarnwick is issued by the Bridge Design Office of Norvale as an aid to the detailing of pile "
    "bents. Its results must be checked by a licensed engineer before they are used in plans. "
    "Norvale accepts no liability for the use of this program or of its results. "
    "Support: Norvale Bridge Design Office, bridge.software@norvale.example, (555) 014-2260.";

// The splash and the About box: the title, the version, the disclaimer (and in About the licence) and OK.
void titleControls(Builder& b, bool disclaimerHeading) {
    b.label(Ctl::lblTitle, kAppTitle);
    b.label(Ctl::lblVersion, versionText());
    if (disclaimerHeading) b.label(Ctl::lblLabel, "DISCLAIMER");
    b.label(Ctl::lblDisclaimer, kDisclaimer);
    // The About box names the licence the program is released under.
    if (!disclaimerHeading) b.label(Ctl::lblLicense, TW_LICENSE_LINE);
    b.button(Ctl::cmdOK, "OK");
}

void printerControls(Builder& b) {
    b.button(Ctl::PrintIt, "Pr&int");
    b.add(Ctl::cmbFileTypes, Kind::ComboBox);
    b.button(Ctl::printCancel, "C&ancel");
    b.button(Ctl::printPreview, "Pr&eview");
    b.add(Ctl::txtCurrentFile, Kind::TextBox);
    b.label(Ctl::Label2, "Current File:");
    b.label(Ctl::lblPageNum, " Select File:");
    b.add(Ctl::CommonDialog1, Kind::Dialog);
}

std::atomic<int> builtCount{0};

} // namespace

int formSetsBuilt() { return builtCount.load(); }

std::string designCaption(Ctl c) {
    for (const auto& [ctl, caption] : kLabelCaptions)
        if (ctl == c) return caption;
    for (const auto& fr : kFrames)
        if (fr.ctl == c) return fr.caption;
    return {};
}

std::vector<Form> buildForms() {
    ++builtCount;
    std::vector<Form> forms;
    forms.push_back(buildMain());
    forms.push_back(buildForm(FormId::Splash, "", 7200, 4800, [](Builder& b) { titleControls(b, true); }));
    forms.push_back(buildForm(FormId::About, std::string("About ") + kAppTitle, 6000, 3600,
                              [](Builder& b) { titleControls(b, false); }));
    forms.push_back(buildForm(FormId::Printer, "Printer", 6000, 2400, printerControls));
    forms.push_back(buildForm(FormId::Preview, "Print Preview", 12000, 9000, [](Builder& b) {
        b.add(Ctl::rtOpen, Kind::RichText);
        b.button(Ctl::cmdQuit, "&Exit");
        b.add(Ctl::comView, Kind::Dialog);
    }));
    forms.push_back(buildForm(FormId::Picture, "", 9000, 7200, [](Builder& b) {
        b.add(Ctl::picViewImage, Kind::Picture);
        b.label(Ctl::Label1, "Double click on image to view the full size picture ");
    }));
    return forms;
}

} // namespace tw
