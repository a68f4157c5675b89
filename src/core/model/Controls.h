// SPDX-License-Identifier: Apache-2.0
// Typed names of every control the program's logic talks about. The names
// are those of the legacy forms, so a replay script, a test and the window
// all say `txtCapLength` for the same thing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tw {

// X(name, array size) -- size 0 means a single control, not an array.
#define TW_CONTROLS(X)                                                                                                 \
    /* frmMain: general inputs */                                                                                      \
    X(txtProjectInfo, 3)                                                                                               \
    X(cboTybent, 0)                                                                                                    \
    X(cboDrScale, 0)                                                                                                   \
    X(cboNoBeam, 0)                                                                                                    \
    X(cboBSkew, 0)                                                                                                     \
    X(cboAngleType, 0)                                                                                                 \
    X(cboBentDrawn, 0)                                                                                                 \
    X(cboWingParallel, 0)                                                                                              \
    X(cboTPLwinwall, 0)                                                                                                \
    X(cboTPRwingwall, 0)                                                                                               \
    X(cboBatterPile, 0)                                                                                                \
    X(cboWingwallPileBox, 0)                                                                                           \
    X(cboBatteredPile, 0)                                                                                              \
    X(cboBearingHole, 0)                                                                                               \
    X(cboTypeOfPile, 0)                                                                                                \
    X(cboStrirrups, 0)                                                                                                 \
    X(txtCapLength, 0)                                                                                                 \
    X(txtCapWidth, 0)                                                                                                  \
    X(txtCapDepth, 0)                                                                                                  \
    X(txtTransWidth, 0)                                                                                                \
    X(txtLongWidth, 0)                                                                                                 \
    X(txtCenterlineDistance, 0)                                                                                        \
    X(txtWidthEndPost, 0)                                                                                              \
    X(txtLengthEndPost, 0)                                                                                             \
    X(txtWingwallLength, 0)                                                                                            \
    X(txtPileBoxDistance1, 0)                                                                                          \
    X(txtPileBoxDistance2, 0)                                                                                          \
    X(txtCapStep, 20)                                                                                                  \
    X(txtCenterline, 21)                                                                                               \
    X(txtBeamangleH, 20)                                                                                               \
    X(txtBeamangleM, 20)                                                                                               \
    X(txtBeamangleS, 20)                                                                                               \
    X(txtBatterPile, 7)                                                                                                \
    X(txtWinLAngle, 3)                                                                                                 \
    X(txtWinRAngle, 3)                                                                                                 \
    /* frmMain: bent-row entry */                                                                                      \
    X(txtBentNoPI, 0)                                                                                                  \
    X(cboBtomCalPI, 0)                                                                                                 \
    X(txtBtLCapPI, 0)                                                                                                  \
    X(txtBtRCapPI, 0)                                                                                                  \
    X(txtEStepPI, 20)                                                                                                  \
    X(txtLwingwallElevation, 0)                                                                                        \
    X(txtElevationTopLeftfront, 0)                                                                                     \
    X(txtElevationTopLeftEnd, 0)                                                                                       \
    X(txtRwingwallElevation, 0)                                                                                        \
    X(txtElevationTopRighFront, 0)                                                                                     \
    X(txtElevationTopRighEnd, 0)                                                                                       \
    X(txtTopLeftEndPost, 0)                                                                                            \
    X(txtTopLeftBackwall, 0)                                                                                           \
    X(txtTopCentBackwall, 0)                                                                                           \
    X(txtTopRightBackwall, 0)                                                                                          \
    X(txtTopRightEndPost, 0)                                                                                           \
    /* frmMain: prompts and unit labels */                                                                             \
    X(lblCCapLength, 0)                                                                                                \
    X(lblCCapLength1, 0)                                                                                               \
    X(Label12, 0)                                                                                                      \
    X(lblCCWingPwall, 0)                                                                                               \
    X(lblCCNoWinwall, 0)                                                                                               \
    X(lblCCBatPile, 0)                                                                                                 \
    X(Label10, 0)                                                                                                      \
    X(Label11, 0)                                                                                                      \
    X(Label35, 0)                                                                                                      \
    X(Label36, 0)                                                                                                      \
    X(Label37, 0)                                                                                                      \
    X(lblPileD1, 0)                                                                                                    \
    X(Label26, 0)                                                                                                      \
    X(lblPileD2, 0)                                                                                                    \
    X(Label27, 0)                                                                                                      \
    X(Label80, 0)                                                                                                      \
    X(Label81, 0)                                                                                                      \
    X(lblBatterPile, 6)                                                                                                \
    X(lblWingWallLAngle, 0)                                                                                            \
    X(lblWingWallRAngle, 0)                                                                                            \
    X(lblWingLAngle, 3)                                                                                                \
    X(lblWingRAngle, 3)                                                                                                \
    X(lblCapStep, 20)                                                                                                  \
    X(lblEStepPI, 20)                                                                                                  \
    X(lblBeamAngleIndex, 20)                                                                                           \
    X(lblBeamAngleH, 20)                                                                                               \
    X(lblBeamAngleM, 20)                                                                                               \
    X(lblBeamAngleS, 20)                                                                                               \
    X(lblCenterline, 19)                                                                                               \
    /* frmMain: sketch labels */                                                                                       \
    X(lblBearingView, 0)                                                                                               \
    X(lblCenterlineView, 0)                                                                                            \
    X(lblElevationView, 0)                                                                                             \
    X(lblViewCenterLine, 0)                                                                                            \
    X(lblViewDimension, 0)                                                                                             \
    /* frmMain: frames */                                                                                              \
    X(Frame1, 0)                                                                                                       \
    X(Frame2, 0)                                                                                                       \
    X(Frame3, 0)                                                                                                       \
    X(Frame4, 0)                                                                                                       \
    X(Frame5, 0)                                                                                                       \
    X(Frame6, 0)                                                                                                       \
    X(Frame7, 0)                                                                                                       \
    X(Frame9, 0)                                                                                                       \
    X(Frame10, 0)                                                                                                      \
    X(Frame11, 0)                                                                                                      \
    X(Frame12, 0)                                                                                                      \
    X(Frame13, 0)                                                                                                      \
    X(Frame18, 0)                                                                                                      \
    /* frmMain: containers, grid, buttons */                                                                           \
    X(SSTab1, 0)                                                                                                       \
    X(MSFlexGrid1, 0)                                                                                                  \
    X(Toolbar1, 0)                                                                                                     \
    X(CommonDialog1, 0)                                                                                                \
    X(cmdQuantity, 6)                                                                                                  \
    X(cmdMoveUp, 0)                                                                                                    \
    X(cmdMoveDown, 0)                                                                                                  \
    X(vbarscrollerCapStep, 0)                                                                                          \
    X(vbarscrollerStepElevation, 0)                                                                                    \
    X(vbarscrollerWingwall, 0)                                                                                         \
    X(vbarscrollerBeamAngle, 0)                                                                                        \
    X(picOutterCap, 0)                                                                                                 \
    X(picInnerCap, 0)                                                                                                  \
    X(picOutterStep, 0)                                                                                                \
    X(picInnerStep, 0)                                                                                                 \
    X(picOutterWingwall, 0)                                                                                            \
    X(picInnerWingWall, 0)                                                                                             \
    X(picOutterBeamAngle, 0)                                                                                           \
    X(picInnerBeamAngle, 0)                                                                                            \
    /* frmMain: menu */                                                                                                \
    X(mnuFile, 0)                                                                                                      \
    X(mnuNew, 0)                                                                                                       \
    X(mnuOpen, 0)                                                                                                      \
    X(mnuSave, 0)                                                                                                      \
    X(mnuSaveAs, 0)                                                                                                    \
    X(mnuBreak1, 0)                                                                                                    \
    X(mnuPrint, 0)                                                                                                     \
    X(mnuBreak2, 0)                                                                                                    \
    X(mnuRun, 0)                                                                                                       \
    X(mnuBreak3, 0)                                                                                                    \
    X(mnuExit, 0)                                                                                                      \
    X(mnuHelp, 0)                                                                                                      \
    X(mnuTarnwickHelp, 0)                                                                                              \
    X(mnuBreak5, 0)                                                                                                    \
    X(mnuAbout, 0)                                                                                                     \
    X(mnuEdit, 0)                                                                                                      \
    X(mnuUndo, 0)                                                                                                      \
    X(mnuRedo, 0)                                                                                                      \
    X(mnuRecentFile, 8)                                                                                                \
    /* frmSplash, frmAbout */                                                                                          \
    X(lblTitle, 0)                                                                                                     \
    X(lblVersion, 0)                                                                                                   \
    X(lblLabel, 0)                                                                                                     \
    X(lblDisclaimer, 0)                                                                                                \
    X(lblLicense, 0)                                                                                                   \
    X(cmdOK, 0)                                                                                                        \
    /* frmIPrinter */                                                                                                  \
    X(PrintIt, 0)                                                                                                      \
    X(cmbFileTypes, 0)                                                                                                 \
    X(printCancel, 0)                                                                                                  \
    X(printPreview, 0)                                                                                                 \
    X(txtCurrentFile, 0)                                                                                               \
    X(Label2, 0)                                                                                                       \
    X(lblPageNum, 0)                                                                                                   \
    /* frmViewTest */                                                                                                  \
    X(rtOpen, 0)                                                                                                       \
    X(cmdQuit, 0)                                                                                                      \
    X(comView, 0)                                                                                                      \
    /* frmPicView */                                                                                                   \
    X(picViewImage, 0)                                                                                                 \
    X(Label1, 0)

enum class Ctl : int {
#define TW_ENUM(name, size) name,
    TW_CONTROLS(TW_ENUM)
#undef TW_ENUM
        Count_
};

constexpr int kControlCount = static_cast<int>(Ctl::Count_);

// The name as written in scripts and output, e.g. "txtCapStep".
std::string_view ctlName(Ctl c);
// Number of items of a control array, 0 for a single control.
int ctlArraySize(Ctl c);
std::optional<Ctl> ctlFromName(std::string_view name);

// One control, or one item of a control array.
struct CtlId {
    Ctl ctl{};
    int index = -1; // -1: not an array item

    CtlId() = default;
    CtlId(Ctl c) : ctl(c) {} // NOLINT(google-explicit-constructor): a bare name is the common case
    CtlId(Ctl c, int i) : ctl(c), index(i) {}

    friend bool operator==(const CtlId&, const CtlId&) = default;
    friend auto operator<=>(const CtlId&, const CtlId&) = default;
};

// "txtCapStep(3)" or "txtCapLength".
std::string toString(const CtlId& id);
// Parses "txtCapStep(3)"; the index must fit the array, a single control takes none.
std::optional<CtlId> parseCtlId(std::string_view text);

} // namespace tw
