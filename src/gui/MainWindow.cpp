// SPDX-License-Identifier: Apache-2.0
#include "gui/MainWindow.h"

#include "core/app/Acts.h"
#include "core/benttable/BentRows.h"
#include "core/form/Forms.h"
#include "core/form/MainForm.h"
#include "core/form/StandingNotes.h"
#include "core/output/UnitsSetting.h"
#include "gui/BentTable.h"
#include "gui/CompareWindow.h"
#include "gui/DrawingPane.h"
#include "gui/DrawingViewer.h"
#include "gui/FormPages.h"
#include "gui/PutAsideWork.h"
#include "gui/ReportCommands.h"
#include "gui/RunOutputs.h"
#include "gui/RunStatus.h"
#include "gui/SmallWindows.h"
#include "gui/StatusMessages.h"
#include "gui/TemplatesWindow.h"
#include "gui/ViewerMain.h"
#include "gui/WindowPlacement.h"
#include "platform/GdalDrawingReader.h"
#include "platform/QtText.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIcon>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolTip>
#include <QVBoxLayout>

#include <map>
#include <tuple>
#include <utility>

static void initToolbarIcons() { Q_INIT_RESOURCE(toolbar); }

namespace tw {

namespace {

// The tab that holds the bent table; the others hold the form's sections.
constexpr int kBentTableTab = 5;

QList<QKeySequence> keysOf(const ActRow& row) {
    QList<QKeySequence> keys;
    for (const auto& k : shortcutsOf(row))
        keys << QKeySequence(QString::fromStdString(k));
    return keys;
}

// The File menu's acts, in its order (the recent projects have their own place).
std::vector<const ActRow*> fileActs() {
    std::vector<const ActRow*> rows;
    for (const auto& r : acts())
        if (r.act <= Act::Exit && r.act != Act::OpenRecent) rows.push_back(&r);
    return rows;
}

QIcon lookUpIcon(const char* theme, const char* key) {
    const QString fallback = QStringLiteral(":/toolbar/%1.svg").arg(QString::fromLatin1(key).toLower());
    return QIcon::fromTheme(QString::fromLatin1(theme), QIcon(fallback));
}

// A small window of ours, up to date, in front.
template <class Window> void bringUp(Window* w) {
    w->refresh();
    w->show();
    w->raise();
    w->activateWindow();
}

// A menu caption without its accelerator marks, for tooltips.
QString plainCaption(const std::string& caption) {
    QString text = q(caption);
    text.remove(QLatin1Char('&'));
    return text.endsWith(QLatin1String("...")) ? text.chopped(3) : text;
}

} // namespace

// Each command's icon is looked up once and shared by its menu item and its
// toolbar button: a lookup searches the icon theme and reads the fallback SVG.
QIcon MainWindow::commandIcon(const char* theme, const char* key) {
    auto it = icons_.find(key);
    if (it == icons_.end()) it = icons_.emplace(key, lookUpIcon(theme, key)).first;
    return it->second;
}

MainWindow::MainWindow(App& app) : app_(app), binder_(app, FormId::Main, this) {
    initToolbarIcons();
    setObjectName(QStringLiteral("frmMain"));
    tabs_ = new QTabWidget;
    tabs_->setObjectName(QStringLiteral("SSTab1"));
    tabs_->setDocumentMode(true);
    // A page is built when it is first shown: the window comes up with the
    // one page it shows, not all six pages' hundreds of controls.
    const auto& captions = tabCaptions();
    for (int i = 0; i <= kBentTableTab; ++i) {
        auto* slot = new QWidget;
        auto* layout = new QVBoxLayout(slot);
        layout->setContentsMargins(0, 0, 0, 0);
        tabs_->addTab(slot, i == kBentTableTab ? QStringLiteral("Bent Table") : q(captions[i]));
    }
    built_.assign(tabs_->count(), false);
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
        buildPage(index);
        if (!syncing_) app_.actions.selectTab(index);
    });
    // From anywhere in the window, Ctrl+Page Down and Ctrl+Page Up step through the tabs that show.
    for (const auto& [keys, step] : {std::pair{QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1},
                                     std::pair{QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1}}) {
        auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, [this, step = step] {
            const int n = tabs_->count();
            for (int i = 1; i < n; ++i) {
                const int next = (tabs_->currentIndex() + step * i + n) % n;
                if (!tabs_->isTabVisible(next)) continue;
                tabs_->setCurrentIndex(next);
                return;
            }
        });
    }

    auto* central = new QWidget;
    auto* v = new QVBoxLayout(central);
    v->setContentsMargins(6, 4, 6, 0);
    v->setSpacing(4);
    notices_ = new QVBoxLayout;
    v->addLayout(notices_);
    v->addWidget(tabs_, 1);
    v->addWidget(sketchStrip());
    setCentralWidget(central);
    drawing_ = new DrawingPane(this);
    drawing_->onBringUpToDate = [this] { app_.actions.apply(cmd::BringUpToDate{}); };
    addDockWidget(Qt::RightDockWidgetArea, drawing_);
    buildMenus();
    buildToolbar();
    filePath_ = new QLabel;
    filePath_->setObjectName(QStringLiteral("currentFilePath"));
    filePath_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    statusBar()->addPermanentWidget(filePath_);
    // One message at a time, newest first; Run's wait and the file at the right.
    messages_ = new StatusMessages;
    messages_->bringUpToDate = [this] { app_.actions.apply(cmd::BringUpToDate{}); };
    statusBar()->addWidget(messages_, 1);
    runStatus_ = new RunStatus(statusBar());
    buildViewMenu();
    refreshMenus();
    setAcceptDrops(true);
    resize(preferredSize());
    // The drawing gets about a quarter of the width; the form keeps the rest.
    resizeDocks({drawing_}, {width() * 27 / 100}, Qt::Horizontal);
}

QSize MainWindow::preferredSize() { return {1280, 800}; }

FrozenColumnTable* MainWindow::grid() { return bentTablePage()->table(); }

BentTablePage* MainWindow::bentTablePage() {
    buildPage(kBentTableTab);
    return bentTable_;
}

void MainWindow::buildPage(int tab) {
    if (tab < 0 || tab >= static_cast<int>(built_.size()) || built_[tab]) return;
    built_[tab] = true;
    const size_t first = binder_.bindingCount();
    QWidget* page = nullptr;
    if (tab == kBentTableTab)
        page = bentTable_ = new BentTablePage(app_, binder_);
    else
        page = formPages()[tab].build(binder_);
    tabs_->widget(tab)->layout()->addWidget(page);
    page->show(); // now, not when the layout's queued show comes round: the focus may go to it at once
    // Tab goes from the tab bar into the page, as when every page was built
    // with the window: a widget built late would otherwise come last in the
    // window's focus chain, after the drawing pane.
    std::vector<QWidget*> chain;
    for (QWidget* w = page->nextInFocusChain(); w != page && page->isAncestorOf(w); w = w->nextInFocusChain())
        if (w->focusPolicy() & Qt::TabFocus) chain.push_back(w);
    QWidget* before = tabs_->tabBar();
    for (QWidget* w : chain)
        QWidget::setTabOrder(std::exchange(before, w), w);
    // Fonts and style as shown, before anything is measured by them.
    page->ensurePolished();
    const bool wasSyncing = std::exchange(syncing_, true);
    binder_.syncSince(first);
    binder_.nameSince(first);
    if (bentTable_ && page == bentTable_) {
        bentTable_->table()->fitColumns(); // by the fonts it is shown in
        bentTable_->refresh();
    }
    syncing_ = wasSyncing;
}

void MainWindow::buildAllPages() {
    for (int i = 0; i < tabs_->count(); ++i)
        buildPage(i);
}

QWidget* MainWindow::widgetFor(const CtlId& id) {
    if (QWidget* w = binder_.widgetFor(id)) return w;
    // Not built yet: the page that holds it, or else the bent table's, which holds the rest.
    const auto& pages = formPages();
    int tab = kBentTableTab;
    for (int i = 0; i < static_cast<int>(pages.size()); ++i)
        if (pageHolds(pages[i], id.ctl)) tab = i;
    if (built_[tab]) return nullptr;
    buildPage(tab);
    return binder_.widgetFor(id);
}

void MainWindow::addNotice(QWidget* bar) { notices_->addWidget(bar); }

QPushButton* MainWindow::bringUpToDateButton() const { return messages_->bringUpToDateButton(); }

void MainWindow::tellPutAside(const QString& text, const QString& copy) {
    addNotice(new PutAsideBar(app_, text, copy));
    if (putAsideWork_ && putAsideWork_->isVisible()) putAsideWork_->refresh();
}

void MainWindow::showPutAsideWork() {
    if (!putAsideWork_) putAsideWork_ = new PutAsideWindow(app_, this);
    bringUp(putAsideWork_);
}

void MainWindow::showBalloon(const QString& text, const CtlId& field) {
    auto* edit = qobject_cast<QLineEdit*>(binder_.widgetFor(field));
    if (!edit || !edit->isVisible()) return;
    // Where the eye is while typing: under the caret, for two seconds or until the next key.
    const QRect caret = edit->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    QToolTip::showText(edit->mapToGlobal(caret.bottomLeft() + QPoint(0, 4)), text, edit, {}, 2000);
}

QWidget* MainWindow::sketchStrip() {
    auto* strip = new QWidget;
    auto* h = new QHBoxLayout(strip);
    h->setContentsMargins(2, 0, 2, 2);
    h->setSpacing(18);
    h->addWidget(new QLabel(QStringLiteral("Sketches:")));
    // Captions wrap rather than hold the window wider than a small screen
    // beside the drawing pane; each takes room in proportion to its length,
    // so none wraps while the row has room for all.
    for (Ctl c : {Ctl::lblViewDimension, Ctl::lblElevationView, Ctl::lblViewCenterLine, Ctl::lblCenterlineView,
                  Ctl::lblBearingView}) {
        QLabel* l = binder_.label(c, nullptr, true);
        l->setWordWrap(true);
        h->addWidget(l, static_cast<int>(app_.ctl(c).caption.size()));
    }
    return strip;
}

void MainWindow::buildMenus() {
    auto item = [this](QMenu* menu, Ctl ctl, const QIcon& icon = {}, const QList<QKeySequence>& shortcuts = {}) {
        auto* a = menu->addAction(icon, q(app_.ctl(ctl).caption));
        a->setObjectName(q(std::string(ctlName(ctl))));
        a->setShortcuts(shortcuts);
        connect(a, &QAction::triggered, this, [this, ctl] { app_.actions.click(ctl); });
        return a;
    };
    auto* edit = new QMenu(q(app_.ctl(Ctl::mnuEdit).caption), this);
    auto* file = menuBar()->addMenu(q(app_.ctl(Ctl::mnuFile).caption));
    for (const ActRow* c : fileActs()) {
        if (c->act == Act::Print || c->act == Act::Run || c->act == Act::Exit) file->addSeparator();
        if (c->act == Act::Exit) {
            // The recent projects, above Exit as other programs place them.
            for (int i = 0; i < ctlArraySize(Ctl::mnuRecentFile); ++i) {
                const CtlId id(Ctl::mnuRecentFile, i);
                auto* a = file->addAction(QString());
                a->setObjectName(q(toString(id)));
                a->setVisible(false);
                connect(a, &QAction::triggered, this, [this, id] { app_.actions.click(id); });
                recent_.push_back(a);
            }
            file->addSeparator();
        }
        item(file, c->control.ctl, c->toolbarKey ? commandIcon(c->themeIcon, c->toolbarKey) : QIcon(), keysOf(*c));
        if (c->act == Act::New) {
            auto* fromTemplate = file->addAction(QStringLiteral("New from Temp&late..."));
            fromTemplate->setObjectName(QStringLiteral("actionNewFromTemplate"));
            fromTemplate->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N));
            fromTemplate->setStatusTip(QStringLiteral("A new project from one of your templates or a shipped one"));
            connect(fromTemplate, &QAction::triggered, this, &MainWindow::showTemplates);
        }
        if (c->act == Act::SaveAs) {
            auto* compare = file->addAction(QStringLiteral("Co&mpare With..."));
            compare->setObjectName(QStringLiteral("actionCompareWith"));
            compare->setStatusTip(QStringLiteral("What differs between a project file and the project on the form"));
            connect(compare, &QAction::triggered, this, [this] {
                const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Compare With"), QString(),
                                                                  QStringLiteral("Tarnwick projects (*.ebnt)"));
                if (!path.isEmpty()) compareWith(path);
            });
            auto* asTemplate = file->addAction(QStringLiteral("Save as T&emplate..."));
            asTemplate->setObjectName(QStringLiteral("actionSaveAsTemplate"));
            asTemplate->setStatusTip(
                QStringLiteral("The form's inputs without the bent table, to start projects from"));
            connect(asTemplate, &QAction::triggered, this, &MainWindow::saveAsTemplate);
            auto* aside = file->addAction(QStringLiteral("Put-Aside &Work..."));
            aside->setObjectName(QStringLiteral("actionPutAsideWork"));
            aside->setStatusTip(QStringLiteral("Unsaved changes that Open, New, Exit or a reload put aside"));
            connect(aside, &QAction::triggered, this, &MainWindow::showPutAsideWork);
        }
        // The checker's report, beside the legacy Print of the listings.
        if (c->act == Act::Print) {
            auto* exportItem = file->addAction(QIcon::fromTheme(QStringLiteral("document-export")),
                                               QStringLiteral("Export &Report..."));
            exportItem->setObjectName(QStringLiteral("actionExportReport"));
            exportItem->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
            connect(exportItem, &QAction::triggered, this, [this] {
                const QString written = exportReport(this, app_);
                if (!written.isEmpty()) messages_->say(QStringLiteral("Report written to %1").arg(written), 8000);
            });
            auto* printItem = file->addAction(QStringLiteral("Print Repor&t..."));
            printItem->setObjectName(QStringLiteral("actionPrintReport"));
            printItem->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
            connect(printItem, &QAction::triggered, this, [this] { printReport(this, app_); });
        }
    }
    menuBar()->addMenu(edit);
    // Undo and Redo name the step they take; both also answer the keys other programs use.
    const ActRow& undoAct = actRow(Act::Undo);
    const ActRow& redoAct = actRow(Act::Redo);
    auto* undo = item(edit, Ctl::mnuUndo, commandIcon(undoAct.themeIcon, undoAct.toolbarKey), keysOf(undoAct));
    auto* redo = item(edit, Ctl::mnuRedo, commandIcon(redoAct.themeIcon, redoAct.toolbarKey), keysOf(redoAct));
    mirrored_.emplace_back(Ctl::mnuUndo, undo);
    mirrored_.emplace_back(Ctl::mnuRedo, redo);
    edit->addSeparator();
    // In a text field Ctrl+C and Ctrl+V stay the field's own; elsewhere they copy and paste bent rows.
    auto* copy = edit->addAction(QIcon::fromTheme(QStringLiteral("edit-copy")), QStringLiteral("&Copy"));
    copy->setObjectName(QStringLiteral("actionCopyBents"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setStatusTip(QStringLiteral("The selected bent rows to the clipboard, for a spreadsheet"));
    connect(copy, &QAction::triggered, this, &MainWindow::copyBents);
    auto* paste = edit->addAction(QIcon::fromTheme(QStringLiteral("edit-paste")), QStringLiteral("&Paste Bents"));
    paste->setObjectName(QStringLiteral("actionPasteBents"));
    paste->setShortcut(QKeySequence::Paste);
    paste->setStatusTip(QStringLiteral("Bent rows from a spreadsheet, each added as Add adds a bent"));
    connect(paste, &QAction::triggered, this, &MainWindow::pasteBents);
    auto* over = edit->addAction(QStringLiteral("Paste &Over Bents"));
    over->setObjectName(QStringLiteral("actionPasteOverBents"));
    over->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V));
    over->setStatusTip(
        QStringLiteral("Bent rows from a spreadsheet: a bent in the table is replaced as Replace does, others added"));
    connect(over, &QAction::triggered, this, &MainWindow::pasteOverBents);
    help_ = menuBar()->addMenu(q(app_.ctl(Ctl::mnuHelp).caption));
    auto* help = help_;
    const ActRow& helpAct = actRow(Act::Help);
    item(help, Ctl::mnuTarnwickHelp, QIcon::fromTheme(QString::fromLatin1(helpAct.themeIcon)), keysOf(helpAct));
    help->addSeparator();
    item(help, Ctl::mnuAbout);
}

void MainWindow::buildViewMenu() {
    // What the window shows besides the form; a part closed comes back here.
    auto* view = new QMenu(QStringLiteral("&View"), this);
    menuBar()->insertMenu(help_->menuAction(), view);
    QAction* pane = drawing_->toggleViewAction();
    pane->setText(QStringLiteral("&Drawing Pane"));
    pane->setObjectName(QStringLiteral("viewDrawingPane"));
    view->addAction(pane);
    auto* bar = findChild<QToolBar*>(QStringLiteral("Toolbar1"));
    QAction* toolbar = bar->toggleViewAction();
    toolbar->setText(QStringLiteral("&Toolbar"));
    toolbar->setObjectName(QStringLiteral("viewToolbar"));
    view->addAction(toolbar);
    auto* status = view->addAction(QStringLiteral("&Status Bar"));
    status->setObjectName(QStringLiteral("viewStatusBar"));
    status->setCheckable(true);
    status->setChecked(true);
    connect(status, &QAction::toggled, statusBar(), &QWidget::setVisible);
    // How lengths read in the drawings, the report and Compare With; the form keeps its own.
    auto* units = view->addMenu(QStringLiteral("&Units"));
    units->setObjectName(QStringLiteral("viewUnits"));
    auto* choice = new QActionGroup(units);
    const LengthUnits chosen = lengthUnits(app_.system());
    for (auto [text, name, u] : {std::tuple{"&Feet and Inches", "unitsFeetInches", LengthUnits::FeetInches},
                                 std::tuple{"&Decimal Feet", "unitsDecimalFeet", LengthUnits::DecimalFeet}}) {
        auto* a = units->addAction(QString::fromLatin1(text));
        a->setObjectName(QString::fromLatin1(name));
        a->setCheckable(true);
        a->setChecked(u == chosen);
        choice->addAction(a);
        connect(a, &QAction::triggered, this, [this, u = u] {
            setLengthUnits(app_.system(), u);
            drawing_->setUnits(u);
            for (auto* compare : findChildren<CompareWindow*>())
                compare->setUnits(u);
        });
    }
    drawing_->setUnits(chosen);
    view->addSeparator();
    auto* outputs = view->addAction(QStringLiteral("Run &Outputs"));
    outputs->setObjectName(QStringLiteral("viewRunOutputs"));
    connect(outputs, &QAction::triggered, this, &MainWindow::showRunOutputs);
}

void MainWindow::showRunOutputs() {
    if (!runOutputs_)
        runOutputs_ = new RunOutputsWindow(
            app_, [this](const std::string& drawing) { openDrawingViewer(app_.programDir(), drawing, this); }, this);
    bringUp(runOutputs_);
}

void MainWindow::buildToolbar() {
    auto* bar = addToolBar(QStringLiteral("Toolbar"));
    bar->setObjectName(QStringLiteral("Toolbar1"));
    bar->setMovable(false);
    bar->setIconSize(QSize(24, 24));
    // The old toolbar's order: New, Open, Save, Run, Print, Exit; then Undo and Redo.
    for (const std::string& key : toolbarKeys()) {
        const ActRow& c = *actOfToolbarKey(key);
        const bool history = c.act == Act::Undo || c.act == Act::Redo;
        if (c.act == Act::Undo) bar->addSeparator();
        const QString k = QString::fromStdString(key);
        auto* a = bar->addAction(commandIcon(c.themeIcon, c.toolbarKey), k);
        a->setObjectName(QStringLiteral("Toolbar1.") + k);
        a->setData(k);
        connect(a, &QAction::triggered, this, [this, key] { app_.actions.toolbar(key); });
        if (history) {
            mirrored_.emplace_back(c.control.ctl, a);
            continue;
        }
        const auto keys = keysOf(c);
        const QString caption = plainCaption(app_.ctl(c.control).caption);
        a->setToolTip(keys.isEmpty()
                          ? caption
                          : QStringLiteral("%1 (%2)").arg(caption, keys.front().toString(QKeySequence::NativeText)));
    }
}

void MainWindow::refreshTabs() {
    // A tab whose every section is hidden for this bent type is hidden too;
    // the form's data says so whether or not the page is built yet.
    const auto& pages = formPages();
    for (int i = 0; i < static_cast<int>(pages.size()); ++i) {
        const bool shows = pageShows(app_, pages[i]);
        if (tabs_->isTabVisible(i) != shows) tabs_->setTabVisible(i, shows);
    }
    const int tab = app_.currentTab();
    if (tabs_->currentIndex() != tab && tabs_->isTabVisible(tab)) tabs_->setCurrentIndex(tab);
    buildPage(tabs_->currentIndex());
}

void MainWindow::refreshStatus() {
    QStringList notes;
    for (const auto& n : standingNotes(app_.session()))
        notes << q(n);
    messages_->setStanding(notes.join(QStringLiteral("; ")), !staleClosingNote(app_.session()).empty());
    const QString path = q(app_.project().currentFile);
    filePath_->setText(path.isEmpty() ? QStringLiteral("Not saved yet") : QDir::toNativeSeparators(path));
    if (app_.session().runOutputBase() != shownRunBase_) {
        shownRunBase_ = app_.session().runOutputBase();
        // The outputs go where the input's name is cut at its first dot, which
        // is not the input's folder when a folder name holds a dot: said then.
        const QString outputs = QFileInfo(q(shownRunBase_)).absolutePath();
        if (!shownRunBase_.empty() && outputs != QFileInfo(q(app_.project().currentFile)).absolutePath())
            messages_->say(QStringLiteral("The engine's outputs are in %1")
                               .arg(QDir::toNativeSeparators(QFileInfo(q(shownRunBase_)).absolutePath())));
    }
}

void MainWindow::refreshTitle() {
    // The caption stays the form's own; Qt adds the marker of unsaved changes.
    setWindowTitle(q(app_.main().caption) + QStringLiteral("[*]"));
    setWindowModified(app_.modified());
}

void MainWindow::refreshMenus() {
    for (size_t i = 0; i < recent_.size(); ++i) {
        const Control& c = app_.ctl(CtlId(Ctl::mnuRecentFile, static_cast<int>(i)));
        recent_[i]->setText(q(c.caption));
        recent_[i]->setStatusTip(QDir::toNativeSeparators(q(c.text)));
        recent_[i]->setVisible(c.visible);
    }
    for (const auto& [ctl, action] : mirrored_) {
        const Control& c = app_.ctl(ctl);
        const bool toolbar = action->objectName().startsWith(QStringLiteral("Toolbar1."));
        const QString text = q(c.caption);
        if (toolbar)
            action->setToolTip(
                QStringLiteral("%1 (%2)").arg(text, keysOf(actRow(ctl == Ctl::mnuUndo ? Act::Undo : Act::Redo))
                                                        .front()
                                                        .toString(QKeySequence::NativeText)));
        else if (action->text() != text)
            action->setText(text);
        action->setEnabled(c.enabled);
    }
}

void MainWindow::placeFocus() {
    if (auto f = app_.focus())
        if (QWidget* w = binder_.widgetFor(*f); w && !w->hasFocus() && w->isVisible())
            w->setFocus(Qt::OtherFocusReason);
}

void MainWindow::refresh() {
    syncing_ = true;
    refreshTitle();
    refreshMenus();
    binder_.sync();
    refreshTabs();
    if (bentTable_) bentTable_->refresh();
    drawing_->showProject(app_);
    refreshStatus();
    syncing_ = false;
    placeFocus();
}

void MainWindow::refresh(const ChangeSet& changes) {
    syncing_ = true;
    refreshTitle();
    refreshMenus();
    binder_.sync(changes);
    if (!changes.controls.empty()) refreshTabs();
    if (bentTable_ && (changes.table || changes.selection)) bentTable_->refresh();
    if (!changes.inputs.empty() || changes.table || changes.selection || changes.focus) drawing_->showProject(app_);
    refreshStatus();
    syncing_ = false;
    if (changes.focus) placeFocus();
    lookAt(changes);
}

void MainWindow::lookAt(const ChangeSet& changes) {
    // After an undo or redo: the tab of the step's field, and its bent row in view.
    if (changes.lookAt)
        if (QWidget* w = widgetFor(*changes.lookAt))
            for (int i = 0; i < tabs_->count(); ++i)
                if (tabs_->widget(i)->isAncestorOf(w) && tabs_->isTabVisible(i)) {
                    tabs_->setCurrentIndex(i);
                    break;
                }
    if (changes.lookAtRow) bentTablePage()->showRow(*changes.lookAtRow);
    if (changes.lookAt) placeFocus();
}

void MainWindow::copyBents() {
    const GridSelection sel = app_.selection();
    const int from = std::max(std::min(sel.row, sel.end), 1), to = std::max(sel.row, sel.end);
    const BentTable& table = app_.project().table();
    if (to < 1 || to >= table.rows()) {
        messages_->say(QStringLiteral("Select the bent rows to copy in the bent table."), 5000);
        return;
    }
    auto* data = new QMimeData;
    data->setText(q(tableTsv(table, from, to)));
    data->setData(QStringLiteral("text/csv"), QByteArray::fromStdString(tableCsv(table, from, to)));
    QApplication::clipboard()->setMimeData(data);
    const int n = to - from + 1;
    messages_->say(QStringLiteral("%1 bent row%2 copied").arg(n).arg(n == 1 ? "" : "s"), 5000);
}

namespace {

// The clipboard's text: a spreadsheet's rows, or the program's own copy.
QString clipboardRows() {
    const QMimeData* data = QApplication::clipboard()->mimeData();
    if (data && data->hasText()) return data->text();
    if (data && data->hasFormat(QStringLiteral("text/csv")))
        return QString::fromUtf8(data->data(QStringLiteral("text/csv")));
    return {};
}

} // namespace

std::optional<std::string> MainWindow::rowsToPaste() {
    const QString text = clipboardRows();
    if (text.trimmed().isEmpty()) {
        messages_->say(QStringLiteral("The clipboard holds no bent rows to paste."), 5000);
        return std::nullopt;
    }
    tabs_->setCurrentIndex(kBentTableTab);
    return text.toStdString();
}

void MainWindow::pasteBents() {
    const auto rows = rowsToPaste();
    if (rows && app_.actions.pasteBents(*rows).offerOver)
        messages_->offerCommand(QStringLiteral("Paste Over Bents"), [this, rows] {
            tabs_->setCurrentIndex(kBentTableTab);
            app_.actions.pasteBents(*rows, true);
        });
}

void MainWindow::pasteOverBents() {
    if (const auto rows = rowsToPaste()) app_.actions.pasteBents(*rows, true);
}

void MainWindow::showTemplates() {
    if (!templates_) templates_ = new TemplatesWindow(app_, this);
    bringUp(templates_);
}

void MainWindow::saveAsTemplate() {
    const QString file = q(app_.project().currentFile);
    const QString suggested = file.isEmpty() ? QString() : QFileInfo(file).completeBaseName();
    const QString name = askTemplateName ? askTemplateName(suggested)
                                         : QInputDialog::getText(this, QStringLiteral("Save as Template"),
                                                                 QStringLiteral("Name of the template (one word):"),
                                                                 QLineEdit::Normal, suggested);
    if (name.isEmpty()) return;
    const TemplateStore store(app_.programDir());
    std::string why;
    const std::string path = store.pathForNew(name.toStdString(), why);
    if (path.empty()) {
        messages_->say(QStringLiteral("The template was not saved: %1.").arg(q(why)));
        return;
    }
    if (QFileInfo::exists(q(path))) {
        const QString question = QStringLiteral("There is a template %1 already. Replace it?").arg(name);
        const bool replace = replaceTemplate ? replaceTemplate(name)
                                             : QMessageBox::question(this, QStringLiteral("Save as Template"),
                                                                     question) == QMessageBox::Yes;
        if (!replace) return;
    }
    app_.actions.apply(cmd::SaveAsTemplate{name.toStdString(), path});
}

void MainWindow::compareWith(const QString& file) {
    auto* window = new CompareWindow(app_, file, this, lengthUnits(app_.system()));
    window->show();
}

void MainWindow::openDropped(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("ebnt")) {
        app_.actions.apply(cmd::OpenPath{path.toStdString()});
        return;
    }
    if (suffix == QLatin1String("dgn")) {
        LoadedDrawing drawing;
        std::string error;
        if (!loadDrawing(app_.programDir(), path.toStdString(), drawing, error)) {
            messages_->say(q(error));
            return;
        }
        auto* viewer = new DrawingViewer(std::move(drawing.scene), path, drawing.elements, this);
        viewer->setAttribute(Qt::WA_DeleteOnClose);
        viewer->setWindowFlag(Qt::Window);
        viewer->placeOnScreen();
        makeSmallWindow(viewer, QStringLiteral("drawingViewer"), this);
        viewer->show();
        return;
    }
    messages_->say(QStringLiteral("%1 is neither a project (.ebnt) nor a drawing (.dgn); nothing was opened.")
                       .arg(QFileInfo(path).fileName()));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const auto urls = event->mimeData()->urls();
    for (const QUrl& url : urls)
        if (url.isLocalFile()) {
            event->acceptProposedAction();
            openDropped(url.toLocalFile());
            return;
        }
    messages_->say(QStringLiteral("Only files on this computer can be dropped here."));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!app_.mainUnloaded()) app_.actions.closeWindow(FormId::Main);
    if (app_.mainUnloaded())
        event->accept();
    else
        event->ignore();
}

} // namespace tw
