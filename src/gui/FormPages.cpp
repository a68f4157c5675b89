// SPDX-License-Identifier: Apache-2.0
#include "gui/FormPages.h"

#include "core/app/App.h"
#include "core/form/FormPrompts.h"
#include "gui/Binder.h"
#include "gui/FormGrid.h"
#include "gui/WrapLabel.h"
#include "platform/QtText.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QVBoxLayout>

namespace tw {

namespace {

QWidget* column(std::initializer_list<QWidget*> groups) {
    auto* w = new QWidget;
    auto* v = new QVBoxLayout(w);
    v->setContentsMargins(0, 0, 0, 0);
    for (QWidget* g : groups)
        v->addWidget(g);
    v->addStretch(1);
    return w;
}

QLabel* note(const QString& text) {
    auto* l = new WrapLabel(text);
    l->setWordWrap(true);
    return l;
}

// A group's explanation, then its rows in a grid on `rows`.
QGridLayout* notedRows(QWidget* group, QWidget* rows, const QString& explanation) {
    auto* v = new QVBoxLayout(group);
    v->addWidget(note(explanation));
    v->addWidget(rows);
    return tightGrid(rows);
}

// Degrees, minutes and seconds: three small fields, each with its mark.
QWidget* angleFields(Binder& b, Ctl field, Ctl marks) {
    auto* box = new QWidget;
    auto* h = new QHBoxLayout(box);
    h->setContentsMargins(0, 0, 0, 0);
    h->setSpacing(2);
    for (int i = 0; i < 3; ++i) {
        auto* e = b.lineEdit(CtlId(field, i));
        e->setFixedWidth(52);
        h->addWidget(e);
        auto* mark = b.label(CtlId(marks, i));
        mark->setMinimumWidth(18);
        h->addWidget(mark);
    }
    h->addStretch(1);
    return box;
}

} // namespace

QWidget* scrolledPage(QWidget* content) {
    auto* area = new QScrollArea;
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // Not a Tab stop of its own: Tab goes from field to field, and the area scrolls to each.
    area->setFocusPolicy(Qt::NoFocus);
    return area;
}

QWidget* generalPage(Binder& b) {
    auto* frame = frameGroup(b, Ctl::Frame1);
    FormGrid g(b, frame);
    auto* titles = new QWidget;
    auto* tv = new QVBoxLayout(titles);
    tv->setContentsMargins(0, 0, 0, 0);
    tv->setSpacing(4);
    for (int i = 0; i < 3; ++i) {
        auto* line = b.lineEdit(CtlId(Ctl::txtProjectInfo, i));
        line->setMinimumWidth(520);
        tv->addWidget(line);
    }
    auto* titlePrompt = note(QStringLiteral("Project information (the three title lines of the listings)"));
    b.bindVisibility(CtlId(Ctl::txtProjectInfo, 0), titlePrompt);
    titlePrompt->setFixedWidth(FormGrid::kPromptWidth);
    g.layout()->addWidget(titlePrompt, 0, 0, Qt::AlignTop);
    g.layout()->addWidget(titles, 0, 1, 1, 3, Qt::AlignLeft);
    g.row(q(choicePrompt(Ctl::cboTybent)), Ctl::cboTybent);
    g.row(q(choicePrompt(Ctl::cboNoBeam)), Ctl::cboNoBeam);
    g.row(q(choicePrompt(Ctl::cboDrScale)), Ctl::cboDrScale);
    g.row(q(choicePrompt(Ctl::cboBentDrawn)), Ctl::cboBentDrawn);
    g.row(q(choicePrompt(Ctl::cboBSkew)), Ctl::cboBSkew);
    g.row(q(choicePrompt(Ctl::cboAngleType)), Ctl::cboAngleType);

    // The cap length's prompt is two labels of the form, one under the other.
    auto* capPrompt = new QWidget;
    auto* cv = new QVBoxLayout(capPrompt);
    cv->setContentsMargins(0, 0, 0, 0);
    cv->setSpacing(0);
    cv->addWidget(b.label(Ctl::lblCCapLength));
    cv->addWidget(b.label(Ctl::lblCCapLength1));
    g.place(capPrompt, b.lineEdit(Ctl::txtCapLength), b.label(Ctl::Label12));

    g.row(Ctl::lblCCWingPwall, Ctl::cboWingParallel);
    g.row(Ctl::lblCCNoWinwall, Ctl::cboWingwallPileBox);
    g.row(Ctl::lblCCBatPile, Ctl::cboBatterPile);
    g.row(Ctl::Label10, Ctl::cboTPLwinwall);
    g.row(Ctl::Label11, Ctl::cboTPRwingwall);
    return scrolledPage(column({frame}));
}

QWidget* capPage(Binder& b) {
    auto* cap = frameGroup(b, Ctl::Frame2);
    FormGrid cg(b, cap);
    cg.row(QStringLiteral("Enter the cap width"), Ctl::txtCapWidth, kFeet);
    cg.row(QStringLiteral("Enter the minimum cap depth"), Ctl::txtCapDepth, kFeet);

    auto* fillet = frameGroup(b, Ctl::Frame3);
    FormGrid fg(b, fillet);
    fg.row(QStringLiteral("Enter the transverse width of the fillet"), Ctl::txtTransWidth, kFeet);
    fg.row(QStringLiteral("Enter the longitudinal width of the fillet (measured perpendicular to the back face "
                          "paving rest)"),
           Ctl::txtLongWidth, kFeet);

    auto* steps = frameGroup(b, Ctl::Frame4);
    auto* sv = new QVBoxLayout(steps);
    sv->addWidget(note(QStringLiteral("The length of each cap step along the cap, one per beam; the last is what the "
                                      "cap length leaves.")));
    auto* rows = numberedRows(b, Ctl::lblCapStep, Ctl::txtCapStep, 20, kFeet);
    b.bindVisibility(Ctl::picOutterCap, rows);
    sv->addWidget(rows);
    return scrolledPage(column({cap, fillet, steps}));
}

QWidget* wingwallPage(Binder& b) {
    auto* wing = frameGroup(b, Ctl::Frame5);
    FormGrid g(b, wing);
    g.row(QStringLiteral("Enter the wingwall length"), Ctl::txtWingwallLength, kFeet);
    for (const auto& [prompt, field, marks] :
         {std::tuple{Ctl::lblWingWallLAngle, Ctl::txtWinLAngle, Ctl::lblWingLAngle},
          std::tuple{Ctl::lblWingWallRAngle, Ctl::txtWinRAngle, Ctl::lblWingRAngle}}) {
        auto* p = b.label(prompt);
        p->setWordWrap(true);
        g.place(p, nullptr, nullptr);
        g.layout()->addWidget(angleFields(b, field, marks), g.layout()->rowCount() - 1, 1, 1, 3, Qt::AlignLeft);
    }

    auto* boxes = frameGroup(b, Ctl::Frame6);
    FormGrid bg(b, boxes);
    bg.row(Ctl::lblPileD1, Ctl::txtPileBoxDistance1, Ctl::Label26);
    bg.row(Ctl::lblPileD2, Ctl::txtPileBoxDistance2, Ctl::Label27);

    auto* posts = frameGroup(b, Ctl::Frame7);
    FormGrid pg(b, posts);
    pg.row(QStringLiteral("Enter the width of the end post"), Ctl::txtWidthEndPost, kFeet);
    pg.row(QStringLiteral("Enter the length of the end post"), Ctl::txtLengthEndPost, kFeet);
    return scrolledPage(column({wing, boxes, posts}));
}

QWidget* bearingPage(Binder& b) {
    auto* bearing = viewGroup(b, QStringLiteral("Bearing Data"));
    FormGrid g(b, bearing);
    g.row(q(choicePrompt(Ctl::cboBearingHole)), Ctl::cboBearingHole);
    g.row(QStringLiteral("Enter the distance from the front face of the cap to the center of the bearing"),
          Ctl::txtCenterlineDistance, kFeet);

    auto* angles = viewGroup(b, QStringLiteral("Beam Angles"));
    auto* rows = new QWidget;
    QGridLayout* rg = notedRows(angles, rows,
                                QStringLiteral("The angle between the centerline of each beam and the centerline of "
                                               "the bearing, in degrees, minutes and seconds"));
    for (int i = 0; i < 20; ++i) {
        const int r = i % 10, c = (i / 10) * 8;
        auto* index = b.label(CtlId(Ctl::lblBeamAngleIndex, i));
        index->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        index->setMinimumWidth(22);
        rg->addWidget(index, r, c);
        const std::pair<Ctl, Ctl> parts[] = {{Ctl::txtBeamangleH, Ctl::lblBeamAngleH},
                                             {Ctl::txtBeamangleM, Ctl::lblBeamAngleM},
                                             {Ctl::txtBeamangleS, Ctl::lblBeamAngleS}};
        int k = c + 1;
        for (const auto& [field, mark] : parts) {
            auto* e = b.lineEdit(CtlId(field, i));
            e->setFixedWidth(52);
            rg->addWidget(e, r, k++);
            rg->addWidget(b.label(CtlId(mark, i)), r, k++);
        }
        rg->setColumnMinimumWidth(c + 7, 24);
    }
    rg->setColumnStretch(16, 1);
    b.bindVisibility(Ctl::picOutterBeamAngle, rows);

    auto* centerlines = viewGroup(b, QStringLiteral("Centerline Locations"));
    QGridLayout* lg =
        notedRows(centerlines, new QWidget,
                  QStringLiteral("Distances along the front face of the cap between the beam centerlines, from the "
                                 "left end to the right end; the last is what the cap length leaves."));
    // Twenty entered distances ten to a column, then the closing one under the first column.
    auto distanceRow = [&](int i, int r, int c) {
        auto* prompt = new QLabel(q(centerlinePrompt(i)));
        b.bindVisibility(CtlId(Ctl::txtCenterline, i), prompt);
        lg->addWidget(prompt, r, c);
        auto* e = b.lineEdit(CtlId(Ctl::txtCenterline, i));
        e->setFixedWidth(FormGrid::kFieldWidth);
        lg->addWidget(e, r, c + 1);
        auto* unit = new QLabel(kFeet);
        b.bindVisibility(CtlId(Ctl::txtCenterline, i), unit);
        lg->addWidget(unit, r, c + 2);
        lg->setColumnMinimumWidth(c + 3, 24);
    };
    for (int i = 0; i < 20; ++i)
        distanceRow(i, i % 10, (i / 10) * 4);
    distanceRow(20, 10, 0);
    lg->setColumnStretch(8, 1);

    // One column: beside the drawing pane there is height to scroll, not width.
    return scrolledPage(column({bearing, angles, centerlines}));
}

QWidget* pilePage(Binder& b) {
    auto* piles = viewGroup(b, QStringLiteral("Pile Type"));
    FormGrid g(b, piles);
    g.row(q(choicePrompt(Ctl::cboTypeOfPile)), Ctl::cboTypeOfPile);
    g.row(q(choicePrompt(Ctl::cboStrirrups)), Ctl::cboStrirrups);

    auto* battered = frameGroup(b, Ctl::Frame18);
    FormGrid bg(b, battered);
    bg.row(q(choicePrompt(Ctl::cboBatteredPile)), Ctl::cboBatteredPile);
    bg.place(b.label(Ctl::Label80), b.label(Ctl::Label81), nullptr);
    for (int i = 0; i < 6; ++i)
        bg.row(CtlId(Ctl::lblBatterPile, i), CtlId(Ctl::txtBatterPile, i), kFeet);
    bg.row(QStringLiteral("Distance left"), CtlId(Ctl::txtBatterPile, 6), kFeet);
    return scrolledPage(column({piles, battered}));
}

const std::vector<FormPage>& formPages() {
    static const std::vector<FormPage> pages = {
        {generalPage,
         {{Ctl::Frame1,
           {Ctl::txtProjectInfo, Ctl::cboTybent, Ctl::cboNoBeam, Ctl::cboDrScale, Ctl::cboBentDrawn, Ctl::cboBSkew,
            Ctl::cboAngleType, Ctl::txtCapLength, Ctl::cboWingParallel, Ctl::cboWingwallPileBox, Ctl::cboBatterPile,
            Ctl::cboTPLwinwall, Ctl::cboTPRwingwall}}}},
        {capPage,
         {{Ctl::Frame2, {Ctl::txtCapWidth, Ctl::txtCapDepth}},
          {Ctl::Frame3, {Ctl::txtTransWidth, Ctl::txtLongWidth}},
          {Ctl::Frame4, {Ctl::txtCapStep}}}},
        {wingwallPage,
         {{Ctl::Frame5, {Ctl::txtWingwallLength, Ctl::txtWinLAngle, Ctl::txtWinRAngle}},
          {Ctl::Frame6, {Ctl::txtPileBoxDistance1, Ctl::txtPileBoxDistance2}},
          {Ctl::Frame7, {Ctl::txtWidthEndPost, Ctl::txtLengthEndPost}}}},
        {bearingPage,
         {{std::nullopt, {Ctl::cboBearingHole, Ctl::txtCenterlineDistance}},
          {std::nullopt, {Ctl::txtBeamangleH, Ctl::txtBeamangleM, Ctl::txtBeamangleS}},
          {std::nullopt, {Ctl::txtCenterline}}}},
        {pilePage,
         {{std::nullopt, {Ctl::cboTypeOfPile, Ctl::cboStrirrups}},
          {Ctl::Frame18, {Ctl::cboBatteredPile, Ctl::txtBatterPile}}}},
    };
    return pages;
}

bool pageShows(const App& app, const FormPage& page) {
    auto shows = [&](Ctl ctl) {
        const int n = ctlArraySize(ctl);
        if (n == 0) return app.ctl(ctl).visible;
        for (int i = 0; i < n; ++i)
            if (app.ctl(CtlId(ctl, i)).visible) return true;
        return false;
    };
    for (const PageSection& s : page.sections) {
        if (s.frame && !app.ctl(*s.frame).visible) continue;
        for (Ctl f : s.fields)
            if (shows(f)) return true;
    }
    return false;
}

bool pageHolds(const FormPage& page, Ctl ctl) {
    for (const PageSection& s : page.sections)
        for (Ctl f : s.fields)
            if (f == ctl) return true;
    return false;
}

} // namespace tw
