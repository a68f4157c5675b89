#include "core/form/MainForm.h"

#include "core/App.h"
#include "core/form/Forms.h"
#include "core/model/Inputs.h"

#include <cmath>

namespace tw {

namespace {

void defaults(App& app, std::initializer_list<CtlId> ids) {
    for (const auto& id : ids)
        applyDefault(app, id);
}

void defaultItems(App& app, Ctl c, int from, int to) {
    for (int i = from; i <= to; ++i)
        applyDefault(app, CtlId(c, i));
}

void setWingLabels(App& app, Ctl labels) {
    app.setCaption(CtlId(labels, 0), kDegreeMark);
    app.setCaption(CtlId(labels, 1), kMinuteMark);
    app.setCaption(CtlId(labels, 2), kSecondMark);
}

} // namespace

void clearBentTable(App& app) {
    Grid& g = app.grid;
    for (int r = 1; r < g.rows(); ++r)
        for (int c = 0; c < g.cols(); ++c)
            g.setCell(r, c, "");
    g.setRows(1);
    g.setCols(7);
}

void clearBeamRows(App& app) {
    for (int i = 0; i < 20; ++i) {
        defaults(app, {CtlId(Ctl::txtCapStep, i), CtlId(Ctl::txtEStepPI, i), CtlId(Ctl::txtCenterline, i)});
        app.ctl(CtlId(Ctl::txtCapStep, i)).color = BackColor::Normal;
    }
}

// The order of the steps is the old form's: the bent type and the number of
// beams run their handlers early, and several inputs are set twice.
void resetForm(App& app) {
    clearBentTable(app);
    app.saveFailed = false;
    app.bentRegister.clear();
    app.bentCounter = 0;
    defaultItems(app, Ctl::txtProjectInfo, 0, 2);

    defaults(app, {Ctl::cboDrScale, Ctl::cboNoBeam, Ctl::cboTybent});
    setWingLabels(app, Ctl::lblWingLAngle);
    setWingLabels(app, Ctl::lblWingRAngle);

    defaults(app, {Ctl::txtCapLength, Ctl::cboBtomCalPI, Ctl::cboBSkew, Ctl::cboAngleType, Ctl::cboBentDrawn,
                   Ctl::cboTPLwinwall, Ctl::cboTPRwingwall, Ctl::cboWingParallel, Ctl::cboWingwallPileBox,
                   Ctl::cboBatterPile});
    defaults(app, {Ctl::txtCapDepth, Ctl::txtCapWidth, Ctl::txtLongWidth, Ctl::txtTransWidth, Ctl::txtWingwallLength,
                   Ctl::txtPileBoxDistance1, Ctl::txtPileBoxDistance2, Ctl::txtLengthEndPost, Ctl::txtWidthEndPost});
    defaultItems(app, Ctl::txtWinLAngle, 0, 2);
    defaultItems(app, Ctl::txtWinRAngle, 0, 2);

    defaults(app,
             {Ctl::txtBentNoPI, Ctl::cboBtomCalPI, Ctl::txtBtLCapPI, Ctl::txtBtRCapPI, Ctl::txtLwingwallElevation,
              Ctl::txtElevationTopLeftfront, Ctl::txtElevationTopLeftEnd, Ctl::txtRwingwallElevation,
              Ctl::txtElevationTopRighFront, Ctl::txtElevationTopRighEnd, Ctl::txtTopLeftEndPost,
              Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall});
    app.setTop(Ctl::picInnerStep, 0);

    applyDefault(app, Ctl::cboBearingHole);
    app.ctl(CtlId(Ctl::txtCenterline, 20)).color = BackColor::Normal;
    applyDefault(app, CtlId(Ctl::txtCenterline, 20));
    for (Ctl c : {Ctl::txtBeamangleH, Ctl::txtBeamangleM, Ctl::txtBeamangleS})
        defaultItems(app, c, 0, 19);

    app.setVisible(Ctl::Frame18, false);
    defaults(app, {Ctl::cboBatteredPile, Ctl::cboTypeOfPile, Ctl::cboStrirrups});
    defaultItems(app, Ctl::txtBatterPile, 0, 5);
    app.ctl(CtlId(Ctl::txtBatterPile, 6)).color = BackColor::Normal;

    clearBeamRows(app);
    setMainCaption(app, false);
    app.actions.selectTab(0);
    app.markSaved();
}

void setupPanes(App& app) {
    const std::pair<Ctl, std::pair<Ctl, Ctl>> panes[] = {
        {Ctl::vbarscrollerCapStep, {Ctl::picOutterCap, Ctl::picInnerCap}},
        {Ctl::vbarscrollerStepElevation, {Ctl::picOutterStep, Ctl::picInnerStep}},
        {Ctl::vbarscrollerWingwall, {Ctl::picOutterWingwall, Ctl::picInnerWingWall}},
        {Ctl::vbarscrollerBeamAngle, {Ctl::picOutterBeamAngle, Ctl::picInnerBeamAngle}},
    };
    for (const auto& [bar, boxes] : panes) {
        const int outer = app.ctl(boxes.first).height;
        const int inner = app.ctl(boxes.second).height;
        Control& b = app.ctl(bar);
        b.min = 0;
        b.max = static_cast<std::int16_t>(std::lround(static_cast<double>(outer - inner)));
        b.largeChange = outer;
        b.smallChange = outer / 5;
    }
}

void loadMainForm(App& app) {
    Form& f = app.main();
    f.top = (app.user.screenHeightTwips() - f.height) / 2;
    f.left = (app.user.screenWidthTwips() - f.width) / 2;
    f.loaded = true;
    resetForm(app);
    setupPanes(app);
}

void setMainCaption(App& app, bool fileCurrent) {
    if (fileCurrent && !app.dialogFileName.empty()) {
        app.currentFile = app.dialogFileName;
        const auto slash = app.currentFile.find_last_of("/\\");
        const std::string name = slash == std::string::npos ? app.currentFile : app.currentFile.substr(slash + 1);
        app.main().caption = std::string(kAppTitle) + " - [" + name + "]";
    } else {
        app.main().caption = kAppTitle;
    }
}

bool hasCurrentFile(const App& app) { return app.main().caption != kAppTitle; }

bool unloadMainForm(App& app) {
    if (app.message("Are you sure you want to exit?", "Confirm Exit", MsgButtons::YesNo, MsgIcon::None) !=
        MsgAnswer::Yes)
        return false;
    for (const auto& [name, form] : app.forms())
        if (name != kFrmMain) app.closeForm(name);
    app.mainUnloaded = true;
    // A program Run waits for ends with the program, not after it.
    app.system.cancelWaits();
    app.closeForm(kFrmMain);
    return true;
}

} // namespace tw
