// Design-time state of every form: kinds, captions, item lists, positions.
#include "core/form/Forms.h"

#include "core/App.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"

#include "tarnwick_version.h"
#include <algorithm>

namespace tw {

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
    void menu(Ctl c, const std::string& caption) { add(c, Kind::Menu).caption = caption; }

  private:
    Form& f_;
};

Form buildMain() {
    Form f(kFrmMain);
    f.caption = kAppTitle;
    f.width = 15360;
    f.height = 10800;
    Builder b(f);

    // Inputs: text boxes and combo boxes, as the table of inputs has them.
    for (Ctl c : inputControls()) {
        const int items = std::max(ctlArraySize(c), 1);
        for (int i = 0; i < items; ++i) {
            const CtlId id = ctlArraySize(c) > 0 ? CtlId(c, i) : CtlId(c);
            const bool isChoice = inputRule(id).kind == InputKind::Choice;
            Control& ctl = b.add(c, isChoice ? Kind::ComboBox : Kind::TextBox, id.index);
            ctl.maxLength = inputRule(id).maxLength;
        }
    }

    // Prompts and unit labels the logic changes.
    b.label(Ctl::lblCCapLength, "Enter the length of the cap measured along");
    b.label(Ctl::lblCCapLength1, "the front face of the cap");
    b.label(Ctl::Label12, "feet");
    b.label(Ctl::lblCCWingPwall, "Are the wingwalls parallel to each other?");
    b.label(Ctl::lblCCNoWinwall, "Select the number of pile boxes per wingwall");
    b.label(Ctl::lblCCBatPile, "Are battered piles to be drawn?");
    b.label(Ctl::Label10, "Is the top left wingwall level?");
    b.label(Ctl::Label11, "Is the top right wingwall level?");
    b.label(Ctl::Label35, "Enter the bottom left cap elevation");
    b.label(Ctl::Label36, "Enter the bottom right cap elevation");
    b.label(Ctl::Label37, "feet");
    b.label(Ctl::lblPileD1, "Enter the dimension from the front face of cap to the centerline of the second pile box");
    b.label(Ctl::Label26, "feet");
    b.label(Ctl::lblPileD2, "Enter the dimension from the front face of cap to the centerline of the third pile box");
    b.label(Ctl::Label27, "feet");
    b.label(Ctl::Label80, "Battered Pile");
    b.label(Ctl::Label81, "Spacing (feet)");
    b.label(Ctl::lblWingWallLAngle, "Enter the wingwall angle");
    b.label(Ctl::lblWingWallRAngle, "Enter the right wingwall angle");
    for (Ctl c :
         {Ctl::lblBatterPile, Ctl::lblWingLAngle, Ctl::lblWingRAngle, Ctl::lblCapStep, Ctl::lblEStepPI,
          Ctl::lblBeamAngleIndex, Ctl::lblBeamAngleH, Ctl::lblBeamAngleM, Ctl::lblBeamAngleS, Ctl::lblCenterline})
        b.label(c);
    for (int i = 0; i < ctlArraySize(Ctl::lblBatterPile); ++i)
        f.at(CtlId(Ctl::lblBatterPile, i)).caption = std::to_string(i + 1);
    for (int i = 0; i < ctlArraySize(Ctl::lblCenterline); ++i)
        f.at(CtlId(Ctl::lblCenterline, i)).caption = std::to_string(i + 1);
    for (int i = 0; i < ctlArraySize(Ctl::lblBeamAngleH); ++i) {
        f.at(CtlId(Ctl::lblBeamAngleH, i)).caption = kDegreeMark;
        f.at(CtlId(Ctl::lblBeamAngleM, i)).caption = kMinuteMark;
        f.at(CtlId(Ctl::lblBeamAngleS, i)).caption = kSecondMark;
    }

    b.label(Ctl::lblBearingView, "Bearing Dimension and Beam Angle Sketch");
    b.label(Ctl::lblCenterlineView, "Centerline Beam Sketch");
    b.label(Ctl::lblElevationView, "Elevation Sketch");
    b.label(Ctl::lblViewCenterLine, "Centerlines Sketch");
    b.label(Ctl::lblViewDimension, "Dimension Sketch");

    b.frame(Ctl::Frame1, "General");
    b.frame(Ctl::Frame2, "Cap Dimensions");
    b.frame(Ctl::Frame3, "Fillet Dimensions");
    b.frame(Ctl::Frame4, "Cap Steps").top = 2880;
    b.frame(Ctl::Frame5, "Wingwall Dimensions and Angles");
    b.frame(Ctl::Frame6, "Pile Box Dimension");
    auto& f7 = b.frame(Ctl::Frame7, "Backwall and End Post Dimension");
    f7.top = 7080;
    f7.left = 120;
    b.frame(Ctl::Frame13, "Top of Backwall Elevations and End Post");
    b.frame(Ctl::Frame18, "Battered Piles");
    auto& f12 = b.frame(Ctl::Frame12, "Top Left Wingwall Level");
    f12.left = 0;
    auto& f11 = b.frame(Ctl::Frame11, "Is top left wingwall level - Yes");
    f11.left = 4680;
    auto& f10 = b.frame(Ctl::Frame10, "Top Right Wingwall Level");
    f10.left = 0;
    auto& f9 = b.frame(Ctl::Frame9, "Is top right wingwall level - Yes");
    f9.left = 4680;

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
    f.at(Ctl::lblCCapLength).top = 4500;
    f.at(Ctl::Label12).top = 4620;

    // The four scrolled panes: an inner box taller than the visible outer one.
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

    b.menu(Ctl::mnuFile, "&File");
    b.menu(Ctl::mnuNew, "&New");
    b.menu(Ctl::mnuOpen, "&Open");
    b.menu(Ctl::mnuSave, "&Save");
    b.menu(Ctl::mnuSaveAs, "S&ave As...");
    b.menu(Ctl::mnuBreak1, "-");
    b.menu(Ctl::mnuPrint, "&Print");
    b.menu(Ctl::mnuBreak2, "-");
    b.menu(Ctl::mnuRun, "R&un");
    b.menu(Ctl::mnuBreak3, "-");
    b.menu(Ctl::mnuExit, "E&xit");
    b.menu(Ctl::mnuHelp, "&Help");
    b.menu(Ctl::mnuTarnwickHelp, "&Tarnwick Help");
    b.menu(Ctl::mnuBreak5, "-");
    b.menu(Ctl::mnuAbout, "&About");
    return f;
}

std::string versionText() {
    return "Version " + std::to_string(TW_VERSION_MAJOR) + "." + std::to_string(TW_VERSION_MINOR) + "." +
           std::to_string(TW_VERSION_PATCH);
}

const char* kDisclaimer =
    "Tarnwick is issued by the Bridge Design Office of Norvale as an aid to the detailing of pile "
    "bents. Its results must be checked by a licensed engineer before they are used in plans. "
    "Norvale accepts no liability for the use of this program or of its results. "
    "Support: Norvale Bridge Design Office, bridge.software@norvale.example, (555) 014-2260.";

Form buildSplash() {
    Form f(kFrmSplash);
    f.width = 7200;
    f.height = 4800;
    Builder b(f);
    b.label(Ctl::lblTitle, kAppTitle);
    b.label(Ctl::lblVersion, versionText());
    b.label(Ctl::lblLabel, "DISCLAIMER");
    b.label(Ctl::lblDisclaimer, kDisclaimer);
    b.button(Ctl::cmdOK, "OK");
    return f;
}

Form buildAbout() {
    Form f(kFrmAbout);
    f.caption = std::string("About ") + kAppTitle;
    f.width = 6000;
    f.height = 3600;
    Builder b(f);
    b.label(Ctl::lblTitle, kAppTitle);
    b.label(Ctl::lblVersion, versionText());
    b.label(Ctl::lblDisclaimer, kDisclaimer);
    b.button(Ctl::cmdOK, "OK");
    return f;
}

Form buildPrinter() {
    Form f(kFrmIPrinter);
    f.caption = "Printer";
    f.width = 6000;
    f.height = 2400;
    Builder b(f);
    b.button(Ctl::PrintIt, "Pr&int");
    b.add(Ctl::cmbFileTypes, Kind::ComboBox);
    b.button(Ctl::printCancel, "C&ancel");
    b.button(Ctl::printPreview, "Pr&eview");
    b.add(Ctl::txtCurrentFile, Kind::TextBox);
    b.label(Ctl::Label2, "Current File:");
    b.label(Ctl::lblPageNum, " Select File:");
    b.add(Ctl::CommonDialog1, Kind::Dialog);
    return f;
}

Form buildViewTest() {
    Form f(kFrmViewTest);
    f.caption = "Print Preview";
    f.width = 12000;
    f.height = 9000;
    Builder b(f);
    b.add(Ctl::rtOpen, Kind::RichText);
    b.button(Ctl::cmdQuit, "&Exit");
    b.add(Ctl::comView, Kind::Dialog);
    return f;
}

Form buildPicView() {
    Form f(kFrmPicView);
    f.width = 9000;
    f.height = 7200;
    Builder b(f);
    b.add(Ctl::picViewImage, Kind::Picture);
    b.label(Ctl::Label1, "Double click on image to view the full size picture ");
    return f;
}

} // namespace

std::vector<Form> buildForms() {
    std::vector<Form> forms;
    forms.push_back(buildMain());
    forms.push_back(buildSplash());
    forms.push_back(buildAbout());
    forms.push_back(buildPrinter());
    forms.push_back(buildViewTest());
    forms.push_back(buildPicView());
    return forms;
}

} // namespace tw
