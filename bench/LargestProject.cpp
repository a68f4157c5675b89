#include "LargestProject.h"

#include "core/model/Inputs.h"

namespace tw::bench {

void fillEntry(App& app, const std::string& number) {
    app.setText(Ctl::txtBentNoPI, number);
    app.setListIndex(Ctl::cboBtomCalPI, 1);
    app.setText(Ctl::txtBtLCapPI, "96.50");
    app.setText(Ctl::txtBtRCapPI, "96.25");
    for (int i = 0; i < 20; ++i)
        app.setText(CtlId(Ctl::txtEStepPI, i), "100.25");
    for (Ctl c : {Ctl::txtLwingwallElevation, Ctl::txtRwingwallElevation, Ctl::txtTopLeftEndPost,
                  Ctl::txtTopRightEndPost, Ctl::txtTopLeftBackwall, Ctl::txtTopCentBackwall, Ctl::txtTopRightBackwall})
        app.setText(c, "104.75");
}

void fillLargestProject(App& app) {
    app.setComboText(Ctl::cboTybent, "Pile End Bent with Backwall");
    app.setComboText(Ctl::cboNoBeam, "20");
    app.setComboText(Ctl::cboAngleType, "No");
    app.setComboText(Ctl::cboWingParallel, "No");
    app.setComboText(Ctl::cboWingwallPileBox, "3");
    app.setComboText(Ctl::cboBatterPile, "Yes");
    app.setComboText(Ctl::cboBatteredPile, "6");
    for (int i = 0; i < 3; ++i)
        app.setText(CtlId(Ctl::txtProjectInfo, i), "LARGEST PROJECT TITLE LINE");
    app.setText(Ctl::txtCapLength, "95.0000");
    for (int i = 0; i < 20; ++i) {
        app.setText(CtlId(Ctl::txtCapStep, i), "4.7500");
        app.setText(CtlId(Ctl::txtCenterline, i), "4.5000");
        app.setText(CtlId(Ctl::txtBeamangleH, i), "75");
        app.setText(CtlId(Ctl::txtBeamangleM, i), "30");
        app.setText(CtlId(Ctl::txtBeamangleS, i), "15.5");
    }
    for (int i = 0; i < 7; ++i)
        app.setText(CtlId(Ctl::txtBatterPile, i), "3.5000");
    app.setText(Ctl::txtPileBoxDistance1, "9.0000");
    app.setText(Ctl::txtPileBoxDistance2, "4.0000");
    for (int b = 1; b <= 99; ++b) {
        std::string row = std::to_string(b) + "\t96.50\t96.25\t";
        for (int c = 3; c < app.grid.cols(); ++c)
            row += "100.25\t";
        app.grid.addItem(row);
        app.bentRegister.push_back(std::to_string(b));
    }
    app.bentCounter = 99;
}

} // namespace tw::bench
