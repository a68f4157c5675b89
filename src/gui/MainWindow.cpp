#include "gui/MainWindow.h"

#include "core/form/Forms.h"
#include "core/form/MainForm.h"
#include "gui/DrawingPane.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolBar>
#include <QVBoxLayout>

namespace tw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

constexpr int kTwipsPerPixel = 15;

QScrollArea* scrolled(QWidget* inner, int maxHeight = 0) {
    auto* area = new QScrollArea;
    area->setWidget(inner);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    if (maxHeight > 0) area->setMaximumHeight(maxHeight);
    return area;
}

QWidget* page(const std::vector<QWidget*>& sections) {
    auto* inner = new QWidget;
    auto* v = new QVBoxLayout(inner);
    for (QWidget* s : sections)
        v->addWidget(s);
    v->addStretch(1);
    return scrolled(inner);
}

} // namespace

MainWindow::MainWindow(App& app, std::function<void()> refreshAll)
    : app_(app), binder_(app, kFrmMain, std::move(refreshAll), this) {
    setObjectName(QStringLiteral("frmMain"));
    tabs_ = new QTabWidget;
    tabs_->setObjectName(QStringLiteral("SSTab1"));
    tabs_->addTab(generalTab(), QString());
    tabs_->addTab(capTab(), QString());
    tabs_->addTab(wingwallTab(), QString());
    tabs_->addTab(bearingTab(), QString());
    tabs_->addTab(pileTab(), QString());
    tabs_->addTab(bentTableTab(), QString());
    const auto& captions = tabCaptions();
    for (int i = 0; i < tabs_->count(); ++i)
        tabs_->setTabText(i, q(captions[i]));
    tabs_->setTabText(5, QStringLiteral("Bent Table"));
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
        if (syncing_) return;
        binder_.run([&] {
            app_.ctl(Ctl::SSTab1).value = index;
            EventArgs a;
            a.index = index;
            app_.fire(kFrmMain, Ctl::SSTab1, Event::Click, a);
        });
    });

    auto* central = new QWidget;
    auto* h = new QHBoxLayout(central);
    h->addWidget(tabs_, 1);
    h->addWidget(sketchPanel());
    setCentralWidget(central);
    drawing_ = new DrawingPane(this);
    addDockWidget(Qt::RightDockWidgetArea, drawing_);
    buildMenus();
    buildToolbar();
    resize(1280, 720);
    resizeDocks({drawing_}, {width() * 27 / 100}, Qt::Horizontal);
}

void MainWindow::row(QGridLayout* grid, const QString& prompt, QWidget* field, const QString& unit) {
    const int r = grid->rowCount();
    auto* l = new QLabel(prompt);
    l->setWordWrap(true);
    l->setBuddy(field);
    grid->addWidget(l, r, 0);
    if (qobject_cast<QLineEdit*>(field)) field->setMaximumWidth(160);
    grid->addWidget(field, r, 1, Qt::AlignLeft);
    if (!unit.isEmpty()) grid->addWidget(new QLabel(unit), r, 2, Qt::AlignLeft);
    grid->setColumnStretch(3, 1);
}

// Numbered rows of one field each (cap steps, step elevations).
QWidget* MainWindow::numberRows(Ctl label, Ctl field, int count, QWidget* parent) {
    auto* inner = new QWidget(parent);
    auto* g = new QGridLayout(inner);
    for (int i = 0; i < count; ++i) {
        g->addWidget(binder_.label(CtlId(label, i)), i, 0);
        auto* e = binder_.lineEdit(CtlId(field, i));
        e->setMaximumWidth(120);
        g->addWidget(e, i, 1);
        auto* unit = new QLabel(QStringLiteral("feet"));
        binder_.bindVisibility(CtlId(field, i), unit);
        g->addWidget(unit, i, 2);
    }
    g->setColumnStretch(3, 1);
    g->setAlignment(Qt::AlignTop);
    return inner;
}

QWidget* MainWindow::generalTab() {
    auto* frame = binder_.groupBox(Ctl::Frame1);
    auto* g = new QGridLayout(frame);
    auto* info = new QWidget;
    auto* iv = new QVBoxLayout(info);
    iv->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 3; ++i) {
        auto* line = binder_.lineEdit(CtlId(Ctl::txtProjectInfo, i));
        line->setMinimumWidth(480);
        iv->addWidget(line);
    }
    row(g, QStringLiteral("Project information (three title lines)"), info);
    row(g, QStringLiteral("Select the type of bent"), binder_.comboBox(Ctl::cboTybent));
    row(g, QStringLiteral("Select the number of beams"), binder_.comboBox(Ctl::cboNoBeam));
    row(g, QStringLiteral("Select the drawing scale"), binder_.comboBox(Ctl::cboDrScale));
    row(g, QStringLiteral("Is the bent to be drawn?"), binder_.comboBox(Ctl::cboBentDrawn));
    row(g, QStringLiteral("Select the direction of the skew"), binder_.comboBox(Ctl::cboBSkew));
    row(g,
        QStringLiteral("Are all the angles between the centerline of the beam and the centerline of the bearing the "
                       "same?"),
        binder_.comboBox(Ctl::cboAngleType));

    auto* capPrompt = new QWidget;
    auto* cv = new QVBoxLayout(capPrompt);
    cv->setContentsMargins(0, 0, 0, 0);
    cv->addWidget(binder_.label(Ctl::lblCCapLength));
    cv->addWidget(binder_.label(Ctl::lblCCapLength1));
    const int r = g->rowCount();
    g->addWidget(capPrompt, r, 0);
    auto* capLength = binder_.lineEdit(Ctl::txtCapLength);
    capLength->setMaximumWidth(140);
    g->addWidget(capLength, r, 1, Qt::AlignLeft);
    g->addWidget(binder_.label(Ctl::Label12), r, 2, Qt::AlignLeft);

    const std::pair<Ctl, Ctl> questions[] = {{Ctl::lblCCWingPwall, Ctl::cboWingParallel},
                                             {Ctl::lblCCNoWinwall, Ctl::cboWingwallPileBox},
                                             {Ctl::lblCCBatPile, Ctl::cboBatterPile},
                                             {Ctl::Label10, Ctl::cboTPLwinwall},
                                             {Ctl::Label11, Ctl::cboTPRwingwall}};
    for (const auto& [label, combo] : questions) {
        const int qr = g->rowCount();
        auto* l = binder_.label(label);
        l->setWordWrap(true);
        g->addWidget(l, qr, 0);
        g->addWidget(binder_.comboBox(combo), qr, 1, Qt::AlignLeft);
    }
    return page({frame});
}

QWidget* MainWindow::capTab() {
    auto* cap = binder_.groupBox(Ctl::Frame2);
    auto* g = new QGridLayout(cap);
    row(g, QStringLiteral("Enter the cap width"), binder_.lineEdit(Ctl::txtCapWidth), QStringLiteral("feet"));
    row(g, QStringLiteral("Enter the minimum cap depth"), binder_.lineEdit(Ctl::txtCapDepth), QStringLiteral("feet"));

    auto* fillet = binder_.groupBox(Ctl::Frame3);
    auto* fg = new QGridLayout(fillet);
    row(fg, QStringLiteral("Enter the transverse width of the fillet"), binder_.lineEdit(Ctl::txtTransWidth),
        QStringLiteral("feet"));
    row(fg,
        QStringLiteral("Enter the longitudinal width of the fillet (measured perpendicular to the back face paving "
                       "rest)"),
        binder_.lineEdit(Ctl::txtLongWidth), QStringLiteral("feet"));

    auto* steps = binder_.groupBox(Ctl::Frame4);
    auto* sv = new QVBoxLayout(steps);
    sv->addWidget(new QLabel(QStringLiteral("Length of each cap step along the cap; the last step is what the cap "
                                            "length leaves.")));
    auto* pane = scrolled(numberRows(Ctl::lblCapStep, Ctl::txtCapStep, 20, nullptr), 330);
    binder_.bindVisibility(Ctl::picOutterCap, pane);
    sv->addWidget(pane);
    return page({cap, fillet, steps});
}

QWidget* MainWindow::wingwallTab() {
    auto* wing = binder_.groupBox(Ctl::Frame5);
    auto* g = new QGridLayout(wing);
    row(g, QStringLiteral("Enter the wingwall length"), binder_.lineEdit(Ctl::txtWingwallLength),
        QStringLiteral("feet"));
    auto angle = [&](Ctl prompt, Ctl field, Ctl units) {
        const int r = g->rowCount();
        g->addWidget(binder_.label(prompt), r, 0);
        auto* box = new QWidget;
        auto* h = new QHBoxLayout(box);
        h->setContentsMargins(0, 0, 0, 0);
        for (int i = 0; i < 3; ++i) {
            auto* e = binder_.lineEdit(CtlId(field, i));
            e->setMaximumWidth(60);
            h->addWidget(e);
            h->addWidget(binder_.label(CtlId(units, i)));
        }
        h->addStretch(1);
        g->addWidget(box, r, 1, 1, 2);
    };
    angle(Ctl::lblWingWallLAngle, Ctl::txtWinLAngle, Ctl::lblWingLAngle);
    angle(Ctl::lblWingWallRAngle, Ctl::txtWinRAngle, Ctl::lblWingRAngle);

    auto* boxes = binder_.groupBox(Ctl::Frame6);
    auto* bg = new QGridLayout(boxes);
    const std::tuple<Ctl, Ctl, Ctl> distances[] = {{Ctl::lblPileD1, Ctl::txtPileBoxDistance1, Ctl::Label26},
                                                   {Ctl::lblPileD2, Ctl::txtPileBoxDistance2, Ctl::Label27}};
    for (const auto& [prompt, field, unit] : distances) {
        const int r = bg->rowCount();
        auto* l = binder_.label(prompt);
        l->setWordWrap(true);
        bg->addWidget(l, r, 0);
        bg->addWidget(binder_.lineEdit(field), r, 1);
        bg->addWidget(binder_.label(unit), r, 2);
    }
    bg->setColumnStretch(0, 1);

    auto* posts = binder_.groupBox(Ctl::Frame7);
    auto* pg = new QGridLayout(posts);
    row(pg, QStringLiteral("Enter the width of the end post"), binder_.lineEdit(Ctl::txtWidthEndPost),
        QStringLiteral("feet"));
    row(pg, QStringLiteral("Enter the length of the end post"), binder_.lineEdit(Ctl::txtLengthEndPost),
        QStringLiteral("feet"));
    return page({wing, boxes, posts});
}

QWidget* MainWindow::bearingTab() {
    auto* bearing = new QGroupBox(QStringLiteral("Bearing Data"));
    auto* g = new QGridLayout(bearing);
    row(g, QStringLiteral("Select the type of bearing hole"), binder_.comboBox(Ctl::cboBearingHole));
    row(g, QStringLiteral("Enter the distance from the front face of the cap to the center of the bearing"),
        binder_.lineEdit(Ctl::txtCenterlineDistance), QStringLiteral("feet"));

    auto* angles = new QGroupBox(QStringLiteral("Beam Angles"));
    auto* av = new QVBoxLayout(angles);
    av->addWidget(new QLabel(QStringLiteral("Angle between the centerline of the beam and the centerline of the "
                                            "bearing (degrees, minutes, seconds)")));
    auto* rows = new QWidget;
    auto* rg = new QGridLayout(rows);
    for (int i = 0; i < 20; ++i) {
        rg->addWidget(binder_.label(CtlId(Ctl::lblBeamAngleIndex, i)), i, 0);
        const std::pair<Ctl, Ctl> parts[] = {{Ctl::txtBeamangleH, Ctl::lblBeamAngleH},
                                             {Ctl::txtBeamangleM, Ctl::lblBeamAngleM},
                                             {Ctl::txtBeamangleS, Ctl::lblBeamAngleS}};
        int c = 1;
        for (const auto& [field, unit] : parts) {
            auto* e = binder_.lineEdit(CtlId(field, i));
            e->setMaximumWidth(60);
            rg->addWidget(e, i, c++);
            rg->addWidget(binder_.label(CtlId(unit, i)), i, c++);
        }
    }
    rg->setColumnStretch(7, 1);
    rg->setAlignment(Qt::AlignTop);
    auto* anglePane = scrolled(rows, 260);
    binder_.bindVisibility(Ctl::picOutterBeamAngle, anglePane);
    av->addWidget(anglePane);

    auto* centerlines = new QGroupBox(QStringLiteral("Centerline Locations"));
    auto* cv = new QVBoxLayout(centerlines);
    cv->addWidget(new QLabel(QStringLiteral("Distances along the cap between the beam centerlines, from the left "
                                            "end; the beams are numbered between them (feet)")));
    auto* lines = new QWidget;
    auto* lg = new QGridLayout(lines);
    for (int i = 0; i < 20; ++i) {
        auto* e = binder_.lineEdit(CtlId(Ctl::txtCenterline, i));
        e->setMaximumWidth(120);
        lg->addWidget(e, i, 0);
        if (i < 19) lg->addWidget(binder_.label(CtlId(Ctl::lblCenterline, i)), i, 1);
    }
    lg->setColumnStretch(2, 1);
    lg->setAlignment(Qt::AlignTop);
    auto* linePane = scrolled(lines, 260);
    cv->addWidget(linePane);
    auto* closing = new QGridLayout;
    row(closing, QStringLiteral("Distance left to the right end of the cap"),
        binder_.lineEdit(CtlId(Ctl::txtCenterline, 20)), QStringLiteral("feet"));
    cv->addLayout(closing);
    return page({bearing, angles, centerlines});
}

QWidget* MainWindow::pileTab() {
    auto* piles = new QGroupBox(QStringLiteral("Pile Type"));
    auto* g = new QGridLayout(piles);
    row(g, QStringLiteral("Select the type of pile"), binder_.comboBox(Ctl::cboTypeOfPile));
    row(g, QStringLiteral("Select the size of the stirrups"), binder_.comboBox(Ctl::cboStrirrups));
    row(g, QStringLiteral("Select the number of battered piles"), binder_.comboBox(Ctl::cboBatteredPile));

    auto* battered = binder_.groupBox(Ctl::Frame18);
    auto* bg = new QGridLayout(battered);
    bg->addWidget(binder_.label(Ctl::Label80), 0, 0);
    bg->addWidget(binder_.label(Ctl::Label81), 0, 1);
    for (int i = 0; i < 6; ++i) {
        bg->addWidget(binder_.label(CtlId(Ctl::lblBatterPile, i)), i + 1, 0);
        auto* e = binder_.lineEdit(CtlId(Ctl::txtBatterPile, i));
        e->setMaximumWidth(120);
        bg->addWidget(e, i + 1, 1);
    }
    bg->addWidget(new QLabel(QStringLiteral("Distance left")), 7, 0);
    auto* closing = binder_.lineEdit(CtlId(Ctl::txtBatterPile, 6));
    closing->setMaximumWidth(120);
    bg->addWidget(closing, 7, 1);
    bg->setColumnStretch(2, 1);
    return page({piles, battered});
}

QWidget* MainWindow::bentTableTab() {
    auto* entry = new QGroupBox(QStringLiteral("Bent"));
    auto* g = new QGridLayout(entry);
    auto* number = binder_.lineEdit(Ctl::txtBentNoPI);
    number->setMaximumWidth(60);
    row(g, QStringLiteral("Enter the bent number"), number);
    row(g, QStringLiteral("Do you want the program to calculate the bottom cap elevations?"),
        binder_.comboBox(Ctl::cboBtomCalPI));
    const std::pair<Ctl, Ctl> bottoms[] = {{Ctl::Label35, Ctl::txtBtLCapPI}, {Ctl::Label36, Ctl::txtBtRCapPI}};
    for (const auto& [label, field] : bottoms) {
        const int r = g->rowCount();
        g->addWidget(binder_.label(label), r, 0);
        g->addWidget(binder_.lineEdit(field), r, 1);
    }
    g->addWidget(binder_.label(Ctl::Label37), g->rowCount() - 1, 2);

    auto* stepsBox = new QGroupBox(QStringLiteral("Step Elevations"));
    auto* sv = new QVBoxLayout(stepsBox);
    auto* stepPane = scrolled(numberRows(Ctl::lblEStepPI, Ctl::txtEStepPI, 20, nullptr), 200);
    binder_.bindVisibility(Ctl::picOutterStep, stepPane);
    sv->addWidget(stepPane);

    auto* wing = new QWidget;
    auto* wv = new QHBoxLayout(wing);
    wv->setContentsMargins(0, 0, 0, 0);
    auto level = [&](Ctl frame, Ctl field, const QString& prompt) {
        auto* f = binder_.groupBox(frame);
        auto* fg = new QGridLayout(f);
        row(fg, prompt, binder_.lineEdit(field), QStringLiteral("feet"));
        wv->addWidget(f);
    };
    auto sloped = [&](Ctl frame, Ctl front, Ctl end) {
        auto* f = binder_.groupBox(frame);
        auto* fg = new QGridLayout(f);
        row(fg, QStringLiteral("Elevation at the front face of the cap"), binder_.lineEdit(front),
            QStringLiteral("feet"));
        row(fg, QStringLiteral("Elevation at the end of the wingwall"), binder_.lineEdit(end), QStringLiteral("feet"));
        wv->addWidget(f);
    };
    level(Ctl::Frame12, Ctl::txtLwingwallElevation,
          QStringLiteral("Enter the elevation at the top of the left wingwall"));
    sloped(Ctl::Frame11, Ctl::txtElevationTopLeftfront, Ctl::txtElevationTopLeftEnd);
    level(Ctl::Frame10, Ctl::txtRwingwallElevation,
          QStringLiteral("Enter the elevation at the top of the right wingwall"));
    sloped(Ctl::Frame9, Ctl::txtElevationTopRighFront, Ctl::txtElevationTopRighEnd);
    binder_.bindVisibility(Ctl::picOutterWingwall, wing);

    auto* backwall = binder_.groupBox(Ctl::Frame13);
    auto* bg = new QGridLayout(backwall);
    const std::pair<const char*, Ctl> tops[] = {
        {"Top of the left end post", Ctl::txtTopLeftEndPost},
        {"Top of the right end post", Ctl::txtTopRightEndPost},
        {"Backwall at the inside face of the left end post", Ctl::txtTopLeftBackwall},
        {"Backwall at the centerline of the bent", Ctl::txtTopCentBackwall},
        {"Backwall at the inside face of the right end post", Ctl::txtTopRightBackwall}};
    for (int i = 0; i < 5; ++i) {
        auto* l = new QLabel(QString::fromLatin1(tops[i].first));
        l->setWordWrap(true);
        bg->addWidget(l, (i / 3) * 2, i % 3);
        bg->addWidget(binder_.lineEdit(tops[i].second), (i / 3) * 2 + 1, i % 3);
    }

    auto* table = new QWidget;
    auto* tv = new QVBoxLayout(table);
    auto* buttons = new QHBoxLayout;
    for (int i = 0; i < 6; ++i)
        buttons->addWidget(binder_.button(CtlId(Ctl::cmdQuantity, i)));
    buttons->addStretch(1);
    tv->addLayout(buttons);
    auto* gridRow = new QHBoxLayout;
    grid_ = new QTableWidget;
    grid_->setObjectName(QStringLiteral("MSFlexGrid1"));
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setMinimumHeight(180);
    binder_.bindVisibility(Ctl::MSFlexGrid1, grid_);
    connect(grid_, &QTableWidget::itemSelectionChanged, this, [this] { gridSelectionChanged(); });
    gridRow->addWidget(grid_, 1);
    auto* moves = new QVBoxLayout;
    moves->addWidget(binder_.button(Ctl::cmdMoveUp));
    moves->addWidget(binder_.button(Ctl::cmdMoveDown));
    moves->addStretch(1);
    gridRow->addLayout(moves);
    tv->addLayout(gridRow);

    return page({entry, stepsBox, wing, backwall, table});
}

QWidget* MainWindow::sketchPanel() {
    auto* box = new QGroupBox(QStringLiteral("Sketches"));
    auto* v = new QVBoxLayout(box);
    for (Ctl c : {Ctl::lblViewDimension, Ctl::lblElevationView, Ctl::lblViewCenterLine, Ctl::lblCenterlineView,
                  Ctl::lblBearingView}) {
        auto* l = binder_.label(c, nullptr, true);
        l->setWordWrap(true);
        l->setMaximumWidth(170);
        v->addWidget(l);
    }
    v->addStretch(1);
    return box;
}

void MainWindow::buildMenus() {
    auto item = [this](QMenu* menu, Ctl ctl, QKeySequence shortcut = {}) {
        auto* a = menu->addAction(q(app_.ctl(ctl).caption));
        a->setObjectName(q(std::string(ctlName(ctl))));
        if (!shortcut.isEmpty()) a->setShortcut(shortcut);
        connect(a, &QAction::triggered, this, [this, ctl] { binder_.run([&] { app_.fire(ctl, Event::Click); }); });
        return a;
    };
    auto* file = menuBar()->addMenu(q(app_.ctl(Ctl::mnuFile).caption));
    item(file, Ctl::mnuNew, QKeySequence::New);
    item(file, Ctl::mnuOpen, QKeySequence::Open);
    item(file, Ctl::mnuSave, QKeySequence::Save);
    item(file, Ctl::mnuSaveAs, QKeySequence::SaveAs);
    file->addSeparator();
    item(file, Ctl::mnuPrint, QKeySequence::Print);
    file->addSeparator();
    item(file, Ctl::mnuRun, QKeySequence(Qt::Key_F5));
    file->addSeparator();
    item(file, Ctl::mnuExit);
    auto* help = menuBar()->addMenu(q(app_.ctl(Ctl::mnuHelp).caption));
    item(help, Ctl::mnuTarnwickHelp, QKeySequence::HelpContents);
    help->addSeparator();
    item(help, Ctl::mnuAbout);
}

void MainWindow::buildToolbar() {
    auto* bar = addToolBar(QStringLiteral("Toolbar1"));
    bar->setObjectName(QStringLiteral("Toolbar1"));
    const std::pair<const char*, QStyle::StandardPixmap> keys[] = {{"New", QStyle::SP_FileIcon},
                                                                   {"Open", QStyle::SP_DialogOpenButton},
                                                                   {"Save", QStyle::SP_DialogSaveButton},
                                                                   {"Run", QStyle::SP_MediaPlay},
                                                                   {"Print", QStyle::SP_FileDialogDetailedView},
                                                                   {"Exit", QStyle::SP_DialogCloseButton}};
    for (const auto& [key, icon] : keys) {
        auto* a = bar->addAction(style()->standardIcon(icon), QString::fromLatin1(key));
        a->setData(QString::fromLatin1(key));
        const std::string k = key;
        connect(a, &QAction::triggered, this, [this, k] {
            binder_.run([&] {
                EventArgs e;
                e.text = k;
                app_.fire(kFrmMain, Ctl::Toolbar1, Event::Click, e);
            });
        });
    }
}

void MainWindow::gridSelectionChanged() {
    if (syncing_) return;
    const auto ranges = grid_->selectedRanges();
    if (ranges.isEmpty()) return;
    const int top = ranges.first().topRow() + 1;
    const int bottom = ranges.first().bottomRow() + 1;
    const int current = grid_->currentRow() + 1;
    // The current row is where the selection began; the other end is its end.
    const int anchor = current == bottom ? top : bottom;
    const int end = current == bottom ? bottom : top;
    if (anchor < app_.grid.rows() && end < app_.grid.rows()) app_.grid.select(anchor, end);
    drawing_->showProject(app_);
}

void MainWindow::syncGrid() {
    const Grid& g = app_.grid;
    syncing_ = true;
    grid_->setColumnCount(g.cols());
    grid_->setRowCount(g.rows() - 1);
    QStringList headings;
    for (int c = 0; c < g.cols(); ++c) {
        headings << q(g.cell(0, c));
        grid_->setColumnWidth(c, g.colWidth(c) / kTwipsPerPixel);
    }
    grid_->setHorizontalHeaderLabels(headings);
    for (int r = 1; r < g.rows(); ++r)
        for (int c = 0; c < g.cols(); ++c) {
            auto* item = grid_->item(r - 1, c);
            if (!item) {
                item = new QTableWidgetItem;
                grid_->setItem(r - 1, c, item);
            }
            const QString text = q(g.cell(r, c));
            if (item->text() != text) item->setText(text);
            item->setTextAlignment(g.colCentred(c) ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
        }
    grid_->clearSelection();
    if (g.row() > 0) {
        const int a = std::min(g.row(), g.rowSel()) - 1, b = std::max(g.row(), g.rowSel()) - 1;
        grid_->setRangeSelected(QTableWidgetSelectionRange(a, 0, b, g.cols() - 1), true);
    }
    syncing_ = false;
}

void MainWindow::refresh() {
    syncing_ = true;
    setWindowTitle(q(app_.main().caption));
    const int tab = app_.currentTab();
    if (tabs_->currentIndex() != tab) tabs_->setCurrentIndex(tab);
    syncing_ = false;
    binder_.sync();
    syncGrid();
    drawing_->showProject(app_);
    if (auto f = app_.focus())
        if (QWidget* w = binder_.widgetFor(*f); w && !w->hasFocus() && w->isVisible())
            w->setFocus(Qt::OtherFocusReason);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!app_.mainUnloaded) binder_.run([&] { unloadMainForm(app_); });
    if (app_.mainUnloaded)
        event->accept();
    else
        event->ignore();
}

} // namespace tw
