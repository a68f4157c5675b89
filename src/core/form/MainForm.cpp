#include "core/form/MainForm.h"

#include "core/App.h"
#include "core/form/Forms.h"
#include "core/model/Choices.h"

#include <cmath>

namespace tw {

namespace {

void clearTexts(App& app, std::initializer_list<Ctl> ctls) {
    for (Ctl c : ctls)
        app.setText(c, "");
}

void clearArray(App& app, Ctl c, int from, int to) {
    for (int i = from; i <= to; ++i)
        app.setText(CtlId(c, i), "");
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
        app.setText(CtlId(Ctl::txtCapStep, i), "");
        app.ctl(CtlId(Ctl::txtCapStep, i)).color = BackColor::Normal;
        app.setText(CtlId(Ctl::txtEStepPI, i), "");
        app.setText(CtlId(Ctl::txtCenterline, i), "");
    }
}

void resetForm(App& app) {
    clearBentTable(app);
    app.saveFailed = false;
    app.bentRegister.clear();
    app.bentCounter = 0;
    clearArray(app, Ctl::txtProjectInfo, 0, 2);

    app.setListIndex(Ctl::cboDrScale, 0);
    app.setListIndex(Ctl::cboNoBeam, 3);
    app.setListIndex(Ctl::cboTybent, 0);

    setWingLabels(app, Ctl::lblWingLAngle);
    setWingLabels(app, Ctl::lblWingRAngle);

    app.setText(Ctl::txtCapLength, "");
    for (Ctl c : {Ctl::cboBtomCalPI, Ctl::cboBSkew, Ctl::cboAngleType, Ctl::cboBentDrawn, Ctl::cboTPLwinwall,
                  Ctl::cboTPRwingwall, Ctl::cboWingParallel, Ctl::cboWingwallPileBox})
        app.setListIndex(c, 0);
    app.setListIndex(Ctl::cboBatterPile, 1);

    app.setText(Ctl::txtCapDepth, "2.0000");
    app.setText(Ctl::txtCapWidth, "3.0000");
    app.setText(Ctl::txtLongWidth, "2.0000");
    app.setText(Ctl::txtTransWidth, "2.0000");
    app.setText(Ctl::txtWingwallLength, "10.0000");
    app.setText(Ctl::txtPileBoxDistance1, "10.0000");
    app.setText(Ctl::txtPileBoxDistance2, "10.0000");
    app.setText(Ctl::txtLengthEndPost, "4.0000");
    app.setText(Ctl::txtWidthEndPost, "1.0000");
    for (Ctl angle : {Ctl::txtWinLAngle, Ctl::txtWinRAngle}) {
        app.setText(CtlId(angle, 0), "90");
        app.setText(CtlId(angle, 1), "0");
        app.setText(CtlId(angle, 2), "00.0");
    }

    app.setText(Ctl::txtBentNoPI, "");
    app.setListIndex(Ctl::cboBtomCalPI, 0);
    clearTexts(app, {Ctl::txtBtLCapPI, Ctl::txtBtRCapPI, Ctl::txtLwingwallElevation, Ctl::txtElevationTopLeftfront,
                     Ctl::txtElevationTopLeftEnd, Ctl::txtRwingwallElevation, Ctl::txtElevationTopRighFront,
                     Ctl::txtElevationTopRighEnd, Ctl::txtTopLeftEndPost, Ctl::txtTopRightEndPost,
                     Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall});

    app.setTop(Ctl::picInnerStep, 0);

    app.setListIndex(Ctl::cboBearingHole, 1);
    app.ctl(CtlId(Ctl::txtCenterline, 20)).color = BackColor::Normal;
    app.setText(CtlId(Ctl::txtCenterline, 20), "");

    for (Ctl c : {Ctl::txtBeamangleH, Ctl::txtBeamangleM, Ctl::txtBeamangleS})
        clearArray(app, c, 0, 19);
    app.setText(CtlId(Ctl::txtBeamangleH, 0), "90");
    app.setText(CtlId(Ctl::txtBeamangleM, 0), "0");
    app.setText(CtlId(Ctl::txtBeamangleS, 0), "0.0");

    app.setVisible(Ctl::Frame18, false);
    app.setListIndex(Ctl::cboBatteredPile, 3);
    app.setListIndex(Ctl::cboTypeOfPile, 0);
    app.setListIndex(Ctl::cboStrirrups, 0);
    clearArray(app, Ctl::txtBatterPile, 0, 5);
    app.ctl(CtlId(Ctl::txtBatterPile, 6)).color = BackColor::Normal;

    clearBeamRows(app);
    setMainCaption(app, false);

    app.actions.selectTab(0);
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
    app.closeForm(kFrmMain);
    return true;
}

} // namespace tw
