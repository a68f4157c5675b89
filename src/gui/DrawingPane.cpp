// SPDX-License-Identifier: Apache-2.0
#include "gui/DrawingPane.h"

#include "core/app/App.h"
#include "core/form/StandingNotes.h"
#include "gui/LaidOutView.h"
#include "platform/QtText.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include <QVBoxLayout>
#include <tuple>

namespace tw {

namespace {
enum View { Automatic, PlanAndElevation, Plan, Elevation };
} // namespace

DrawingPane::DrawingPane(QWidget* parent) : QDockWidget(QStringLiteral("Drawing"), parent) {
    setObjectName(QStringLiteral("drawingPane"));
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable | QDockWidget::DockWidgetClosable);
    auto* inner = new QWidget;
    auto* v = new QVBoxLayout(inner);
    v->setContentsMargins(4, 4, 4, 4);
    auto* bar = new QHBoxLayout;
    views_ = new QComboBox;
    views_->setObjectName(QStringLiteral("drawingViews"));
    views_->addItems({QStringLiteral("Automatic"), QStringLiteral("Plan and elevation"), QStringLiteral("Plan"),
                      QStringLiteral("Elevation")});
    views_->setToolTip(QStringLiteral("Which views of the bent to draw. Automatic: both when the pane has room for "
                                      "them, else the view of the field you are in"));
    // The pane may be narrow on a small screen: the closed list shows what fits, its popup the whole names.
    views_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    views_->setMinimumContentsLength(10);
    bar->addWidget(views_);
    bar->addStretch(1);
    view_ = new LaidOutView;
    view_->setObjectName(QStringLiteral("drawingView"));
    view_->setToolTip(QStringLiteral("Wheel: zoom. Drag: pan. Double-click or F: fit."));
    // Short captions, their words in the tooltips: the pane keeps a narrow
    // minimum width beside the form on a small screen.
    const std::tuple<const char*, const char*, void (SceneView::*)()> buttons[] = {
        {"Fit", "Fit the drawing to the pane (F)", &SceneView::fit},
        {"+", "Zoom in (wheel up)", &SceneView::zoomIn},
        {"\u2212", "Zoom out (wheel down)", &SceneView::zoomOut}};
    for (const auto& [text, tip, slot] : buttons) {
        auto* b = new QToolButton;
        b->setText(QString::fromUtf8(text));
        b->setToolTip(QString::fromLatin1(tip));
        b->setAccessibleName(QString::fromLatin1(tip));
        b->setAutoRaise(true);
        connect(b, &QToolButton::clicked, view_, slot);
        bar->addWidget(b);
    }
    v->addLayout(bar);
    v->addWidget(view_, 1);
    // Rather than text too small to read, the drawing runs on below the pane, which says so.
    fit_ = new QLabel(QStringLiteral("The pane is too narrow for this drawing's labels: drag to see the rest, "
                                     "widen the pane, or show the plan or the elevation alone."));
    fit_->setObjectName(QStringLiteral("drawingTooSmall"));
    fit_->setWordWrap(true);
    fit_->hide();
    v->addWidget(fit_);
    // The drawing works out the closing values afresh; the form holds them
    // as last worked out, and a save writes those.
    stale_ = new QLabel;
    stale_->setObjectName(QStringLiteral("staleClosing"));
    stale_->setTextFormat(Qt::PlainText);
    stale_->setWordWrap(true);
    stale_->setFrameShape(QFrame::StyledPanel);
    stale_->hide();
    v->addWidget(stale_);
    bringUpToDate_ = new QPushButton(tr("Bring up to date"));
    bringUpToDate_->setObjectName(QStringLiteral("paneBringUpToDate"));
    bringUpToDate_->setToolTip(tr("Work out the closing values again now, as a change of tab does"));
    bringUpToDate_->hide();
    connect(bringUpToDate_, &QPushButton::clicked, this, [this] {
        if (onBringUpToDate) onBringUpToDate();
    });
    v->addWidget(bringUpToDate_, 0, Qt::AlignRight);
    setWidget(inner);
    view_->setLayout([this](double w, double h) { return layout(w, h); });
    connect(views_, &QComboBox::currentIndexChanged, this, [this] {
        view_->relayout();
        view_->fit();
    });
    // The first frame is the window's: its paint comes before any of its parts'.
    firstPaint_ = parent ? parent->window() : view_;
    firstPaint_->installEventFilter(this);
    // A closed pane costs nothing; it catches up when it is shown again.
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        if (visible && app_) showProject(*app_);
    });
}

QSize DrawingPane::sizeHint() const { return {345, 480}; }

bool DrawingPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == firstPaint_ && event->type() == QEvent::Paint && !windowUp_) {
        firstPaint_->removeEventFilter(this);
        // A timer of its own, not a queued call: those run in the same turn
        // as the paint, before the frame is on the screen.
        auto* later = new QTimer(this);
        later->setSingleShot(true);
        connect(later, &QTimer::timeout, this, [this, later] {
            later->deleteLater();
            windowUp_ = true;
            if (app_) showProject(*app_);
        });
        later->start(0);
    }
    return QDockWidget::eventFilter(watched, event);
}

void DrawingPane::showProject(const App& app) {
    app_ = &app;
    if (!isVisible() || !windowUp_) return;
    const QString stale = q(staleClosingNote(app.session()));
    if (stale_->text() != stale) stale_->setText(stale);
    stale_->setVisible(!stale.isEmpty());
    bringUpToDate_->setVisible(!stale.isEmpty());
    const auto focus = app.focus();
    const std::string highlight = focus ? toString(drawing::drawnControl(*focus)) : std::string();
    if (highlight != view_->options().highlight) {
        PaintOptions options = view_->options();
        options.highlight = highlight;
        view_->setOptions(options);
    }
    bool elevationFirst = elevationFirst_;
    if (focus)
        if (auto e = drawing::inElevation(*focus)) elevationFirst = *e;
    drawing::BentInputs inputs = drawing::readBentInputs(app.project(), std::nullopt, {focus, app.selection().row});
    if (inputs == inputs_ && elevationFirst == elevationFirst_ && !view_->scene().shapes.empty()) return;
    inputs_ = std::move(inputs);
    elevationFirst_ = elevationFirst;
    view_->relayout();
}

void DrawingPane::setUnits(LengthUnits units) {
    if (units == units_) return;
    units_ = units;
    last_.clear();
    view_->relayout();
}

drawing::Scene DrawingPane::laidOut(const drawing::DrawOptions& o, double widthPt, double heightPt,
                                    drawing::LayoutReport& report) const {
    drawing::LayoutReport& last = last_[{o.plan, o.elevation}];
    drawing::Scene scene = drawing::drawBentToFit(inputs_, o, widthPt, heightPt, &report, drawing::kPaneMargin, &last);
    last = report;
    return scene;
}

drawing::Scene DrawingPane::layout(double widthPt, double heightPt) const {
    if (!windowUp_) return {};
    // The project's lines stand on the form beside the pane: the title block names the bent only.
    drawing::DrawOptions o;
    o.units = units_;
    o.projectLines = false;
    const int view = views_->currentIndex();
    o.plan = view != Elevation;
    o.elevation = view != Plan;
    drawing::DrawOptions single = o;
    single.plan = !elevationFirst_;
    single.elevation = elevationFirst_;
    const QSizeF size(widthPt, heightPt);
    drawing::LayoutReport report;
    drawing::Scene scene;
    if (view != Automatic) {
        scene = laidOut(o, widthPt, heightPt, report);
    } else if (choice_ && choice_->size == size && choice_->elevationFirst == elevationFirst_ &&
               choice_->beams == inputs_.beams && choice_->type == inputs_.type) {
        scene = laidOut(choice_->both ? o : single, widthPt, heightPt, report);
    } else {
        // Both views while they stay readable and each keeps most of the size it would have alone.
        drawing::LayoutReport both, alone;
        scene = laidOut(o, widthPt, heightPt, both);
        drawing::Scene one = laidOut(single, widthPt, heightPt, alone);
        const bool bothFit = !both.cramped && both.feetPerPoint <= 1.5 * alone.feetPerPoint;
        choice_ = Choice{size, elevationFirst_, inputs_.beams, inputs_.type, bothFit};
        report = bothFit ? both : alone;
        if (!bothFit) scene = std::move(one);
    }
    // Shown or hidden after the paint this layout is part of.
    QMetaObject::invokeMethod(
        fit_, [note = fit_, tooSmall = report.tooSmall] { note->setVisible(tooSmall); }, Qt::QueuedConnection);
    return scene;
}

} // namespace tw
