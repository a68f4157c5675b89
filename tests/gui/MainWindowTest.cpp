// SPDX-License-Identifier: Apache-2.0
// The window mirrors the form data and hands widget events to the core.
#include "ShownWindow.h"

#include "gui/BentTable.h"
#include "gui/CompareWindow.h"
#include "gui/DrawingViewer.h"
#include "gui/FormPages.h"
#include "gui/MainWindow.h"
#include "gui/StatusMessages.h"
#include "platform/QtText.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

namespace tw {

class MainWindowTest : public QObject, public test::ShownWindow {
    Q_OBJECT

    template <class W> W* find(const char* name) {
        window->buildAllPages();
        auto* w = window->findChild<W*>(QString::fromLatin1(name));
        if (!w) qFatal("no widget %s", name);
        return w;
    }

    // Bent 4 typed into the entry fields and added with the Add button.
    void addBent4() {
        (*app)->actions.edit(Ctl::txtBentNoPI, "4");
        for (int i = 0; i < 4; ++i)
            (*app)->actions.edit(CtlId(Ctl::txtEStepPI, i), "101.25");
        (*app)->actions.edit(Ctl::txtLwingwallElevation, "104.00");
        (*app)->actions.edit(Ctl::txtRwingwallElevation, "104.50");
        QTest::mouseClick(find<QPushButton>("cmdQuantity(0)"), Qt::LeftButton);
    }

  private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void typingGoesThroughTheKeyFilterAndLeavingFormats() {
        window->tabs()->setCurrentIndex(1);
        auto* depth = find<QLineEdit>("txtCapDepth");
        depth->setFocus(Qt::MouseFocusReason);
        QCOMPARE(depth->selectedText(), QStringLiteral("2.0000"));
        QTest::keyClicks(depth, QStringLiteral("12a3.4.5"));
        QCOMPARE((*app)->text(Ctl::txtCapDepth), std::string("123.45"));
        QCOMPARE(depth->text(), QStringLiteral("123.45"));
        find<QLineEdit>("txtCapWidth")->setFocus(Qt::TabFocusReason);
        QCOMPARE(depth->text(), QStringLiteral("23.4500"));
    }

    void choosingABentTypeShowsTheSectionsThatApply() {
        auto* type = find<QComboBox>("cboTybent");
        type->setFocus(Qt::MouseFocusReason);
        type->setCurrentIndex(2);
        emit type->activated(2);
        QCOMPARE((*app)->text(Ctl::cboTybent), std::string("Pile Intermediate Bent"));
        for (const char* frame : {"Frame3", "Frame5", "Frame6", "Frame7", "Frame18"})
            QVERIFY2(find<QGroupBox>(frame)->isHidden(), frame);
        QVERIFY(find<QComboBox>("cboWingParallel")->isHidden());
        QCOMPARE(find<QLineEdit>("txtCenterlineDistance")->text(), QStringLiteral("0.7500"));
        type->setCurrentIndex(1);
        emit type->activated(1);
        QVERIFY(!find<QGroupBox>("Frame7")->isHidden());
        QCOMPARE(window->grid()->model()->columnCount(), 16);
    }

    // A page is built when its tab is first shown, with what the form holds
    // by then; before that its tab shows or hides as its sections would.
    void pagesBuiltLateShowTheFormAsItIsThen() {
        QVERIFY(!window->findChild<QLineEdit*>(QStringLiteral("txtCapDepth")));
        QVERIFY(!window->findChild<QTableView*>());
        (*app)->actions.focus(Ctl::txtCapDepth);
        (*app)->actions.edit(Ctl::txtCapDepth, "3.5");
        (*app)->actions.leave(Ctl::txtCapDepth);
        (*app)->actions.choose(Ctl::cboNoBeam, 3);
        window->tabs()->setCurrentIndex(1);
        auto* depth = window->findChild<QLineEdit*>(QStringLiteral("txtCapDepth"));
        QVERIFY(depth && depth->isVisible());
        QCOMPARE(depth->text().toStdString(), (*app)->text(Ctl::txtCapDepth));
        for (int i = 0; i < 20; ++i) {
            auto* step = window->findChild<QLineEdit*>(q(toString(CtlId(Ctl::txtCapStep, i))));
            QCOMPARE(step->isVisibleTo(window.get()), (*app)->ctl(CtlId(Ctl::txtCapStep, i)).visible);
        }

        // Every choice that hides sections, pages unbuilt and then built: a
        // tab shows exactly while a section on its page does.
        auto sectionsShown = [&](int tab) {
            for (const QGroupBox* g : window->tabs()->widget(tab)->findChildren<QGroupBox*>())
                if (!g->isHidden()) return true;
            return false;
        };
        window->buildAllPages();
        // What each page is said to hold, so its tab can show or hide unbuilt, is what it holds.
        const auto& pages = formPages();
        for (int tab = 0; tab < static_cast<int>(pages.size()); ++tab) {
            QWidget* page = window->tabs()->widget(tab);
            for (QWidget* w : page->findChildren<QWidget*>())
                if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w))
                    if (auto id = window->binder().idOf(w))
                        QVERIFY2(pageHolds(pages[tab], id->ctl), qPrintable(w->objectName()));
            for (const PageSection& section : pages[tab].sections)
                for (Ctl field : section.fields) {
                    const int n = ctlArraySize(field);
                    for (int i = 0; i < std::max(n, 1); ++i) {
                        const QString name = q(toString(n ? CtlId(field, i) : CtlId(field)));
                        QVERIFY2(page->findChild<QWidget*>(name), qPrintable(name));
                    }
                }
        }
        for (int type = 0; type < 3; ++type)
            for (int boxes = 0; boxes < 3; ++boxes)
                for (int batter = 0; batter < 2; ++batter) {
                    (*app)->actions.choose(Ctl::cboTybent, type);
                    (*app)->actions.choose(Ctl::cboWingwallPileBox, boxes);
                    (*app)->actions.choose(Ctl::cboBatterPile, batter);
                    for (int tab = 0; tab < 5; ++tab)
                        QVERIFY2(window->tabs()->isTabVisible(tab) == sectionsShown(tab),
                                 qPrintable(QStringLiteral("type %1, boxes %2, batter %3: tab %4")
                                                .arg(type)
                                                .arg(boxes)
                                                .arg(batter)
                                                .arg(tab)));
                }
    }

    // Tab from the tab bar goes into the page in front, built first or late.
    void tabFromTheTabBarGoesIntoThePage() {
        for (int tab : {0, 1, 3}) {
            window->tabs()->setCurrentIndex(tab);
            window->tabs()->tabBar()->setFocus(Qt::TabFocusReason);
            QTest::keyClick(window->tabs()->tabBar(), Qt::Key_Tab);
            QWidget* now = QApplication::focusWidget();
            QVERIFY2(now && window->tabs()->currentWidget()->isAncestorOf(now),
                     qPrintable(QStringLiteral("tab %1: %2").arg(tab).arg(now ? now->objectName() : QString())));
        }
    }

    void theGridShowsTheBentsTheCoreHolds() {
        window->tabs()->setCurrentIndex(5);
        addBent4();
        const QAbstractItemModel* model = window->grid()->model();
        QCOMPARE(model->rowCount(), 1);
        QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("4"));
        QCOMPARE(model->headerData(3, Qt::Horizontal).toString(), QStringLiteral("1Step"));
        window->grid()->selectRow(0);
        QCOMPARE((*app)->selection().row, 1);
    }

    void saveWritesTheFileAndNamesItInTheTitle() {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("bent7.ebnt"));
        app->ports.files = {path.toStdString()};
        auto* save = window->findChild<QAction*>(QStringLiteral("mnuSave"));
        QVERIFY(save);
        save->trigger();
        QVERIFY(QFile::exists(path));
        QCOMPARE(window->windowTitle(), QStringLiteral("Norvale-Tarnwick - [bent7.ebnt][*]"));
        QVERIFY(!window->isWindowModified());
        QCOMPARE(app->ports.dialogs.back().defaultExt, std::string("ibnt"));
    }

    // Files dropped on the window: a project opens as Open opens it (the same
    // one again asks first) and joins the recent projects; a drawing goes to
    // the drawing viewer; anything else is a note in the status bar.
    void droppingFilesOnTheWindow() {
        auto drop = [&](const QString& path) {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(path)});
            const QPointF at = window->rect().center();
            QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window.get(), &enter);
            QVERIFY(enter.isAccepted());
            QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window.get(), &dropped);
        };
        const QString project = QStringLiteral(TW_SOURCE_DIR "/samples/intermediate.ebnt");
        drop(project);
        const QString title = QStringLiteral("Norvale-Tarnwick - [intermediate.ebnt][*]");
        QCOMPARE(window->windowTitle(), title);
        QCOMPARE(window->grid()->model()->rowCount(), 1);
        QVERIFY(app->ports.dialogs.empty());
        auto* recent = find<QAction>("mnuRecentFile(0)");
        QVERIFY(recent->isVisible());
        QCOMPARE(recent->text(), QStringLiteral("&1 intermediate.ebnt"));
        QCOMPARE(recent->statusTip(), project);
        QVERIFY(!find<QAction>("mnuRecentFile(1)")->isVisible());

        app->ports.answers = {MsgAnswer::No};
        drop(project);
        QCOMPARE(app->ports.messages.back().text, std::string("File is already open.  Revert to last saved copy?"));

        drop(QStringLiteral(TW_SOURCE_DIR "/tests/replay/view-not-a-drawing/files/notes.dgn"));
        QVERIFY(window->findChildren<DrawingViewer*>().isEmpty());
        QVERIFY(!window->messages()->shownText().isEmpty());

        drop(QStringLiteral(TW_SOURCE_DIR "/README.md"));
        QVERIFY(window->messages()->shownText().startsWith(QStringLiteral("README.md is neither")));
        QCOMPARE(window->windowTitle(), title);
    }

    // Bent rows to and from a spreadsheet through the clipboard; a paste is one step of the history.
    void copyingAndPastingBentRows() {
        window->tabs()->setCurrentIndex(5);
        QApplication::clipboard()->setText(
            QStringLiteral("5\t\t\t101\t101.1\t101.2\t101.3\t104\t104\t104\t104\n"
                           "6\t98\t98.5\t101\t101.1\t101.2\t101.3\t104\t104\t104.5\t104\n"));
        find<QAction>("actionPasteBents")->trigger();
        QCOMPARE(window->grid()->model()->rowCount(), 2);
        QCOMPARE(window->grid()->model()->index(1, 1).data().toString(), QStringLiteral("98.00"));
        QCOMPARE(find<QAction>("mnuUndo")->text(), QStringLiteral("Undo Paste Bents"));

        (*app)->actions.selectRows(1, 2);
        find<QAction>("actionCopyBents")->trigger();
        const QMimeData* copied = QApplication::clipboard()->mimeData();
        const QStringList lines = copied->text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines[0].startsWith(QStringLiteral("Bent Number\tBottom Left Cap\t")));
        QCOMPARE(lines[2],
                 QStringLiteral("6\t98.00\t98.50\t101.00\t101.10\t101.20\t101.30\t104.00\t104.00\t104.50\t104.00"));
        QVERIFY(copied->data(QStringLiteral("text/csv")).contains("\r\n5,,,101.00,101.10"));

        // In a text field the keys are the field's own.
        QApplication::clipboard()->setText(QStringLiteral("12"));
        auto* number = find<QLineEdit>("txtBentNoPI");
        number->setFocus(Qt::MouseFocusReason);
        QTest::keySequence(number, QKeySequence::Paste);
        QCOMPARE(number->text(), QStringLiteral("12"));
        QCOMPARE(window->grid()->model()->rowCount(), 2);

        find<QAction>("mnuUndo")->trigger();
        find<QAction>("mnuUndo")->trigger();
        QCOMPARE(window->grid()->model()->rowCount(), 0);
    }

    void compareWithShowsTheDifferencesInAWindowOfItsOwn() {
        window->compareWith(QStringLiteral(TW_SOURCE_DIR "/samples/intermediate.ebnt"));
        auto* compare = window->findChild<CompareWindow*>();
        QVERIFY(compare);
        QVERIFY(!compare->isModal());
        QVERIFY(compare->isVisible());
        QString list = compare->list()->toPlainText();
        QVERIFY(list.contains(QStringLiteral("Bent type: Pile Intermediate Bent -> Pile End Bent without Backwall")));
        QVERIFY(list.contains(QStringLiteral("Bent 2 removed: Bottom Left Cap (blank), Bottom Right Cap (blank), "
                                             "1Step EL. 101.32, 2Step EL. 101.45, 3Step EL. 101.58,")));
        // A long line is wrapped at the window's width, never cut.
        QCOMPARE(compare->list()->lineWrapMode(), QPlainTextEdit::WidgetWidth);
        QCOMPARE(compare->list()->horizontalScrollBar()->maximum(), 0);

        // With a project of the samples on the form, another file typed into the path box,
        // relative to the project's folder, and Return.
        app->ports.files = {TW_SOURCE_DIR "/samples/twelve-beams.ebnt"};
        (*app)->actions.click(Ctl::mnuOpen);
        auto* path = compare->pathBox();
        path->clear();
        path->setFocus(Qt::MouseFocusReason);
        QTest::keyClicks(path, QStringLiteral("end-with-backwall.ebnt"));
        QTest::keyClick(path, Qt::Key_Return);
        QVERIFY(compare->isVisible());
        QCOMPARE(path->text(),
                 QDir::toNativeSeparators(QStringLiteral(TW_SOURCE_DIR "/samples/end-with-backwall.ebnt")));
        QCOMPARE(compare->windowTitle(), QStringLiteral("Compare With end-with-backwall.ebnt"));
        list = compare->list()->toPlainText();
        QVERIFY2(
            list.contains(QStringLiteral("Bent type: Pile End Bent with Backwall -> Pile End Bent without Backwall")),
            qPrintable(list));
        QVERIFY(list.contains(QStringLiteral("Cap length: 38'-0\" -> 80'-0\"")));
        // View > Units lists the lengths again in the units chosen.
        find<QAction>("unitsDecimalFeet")->trigger();
        QVERIFY(compare->list()->toPlainText().contains(QStringLiteral("Cap length: 38.00' -> 80.00'")));
        find<QAction>("unitsFeetInches")->trigger();
        QVERIFY(compare->list()->toPlainText().contains(QStringLiteral("Cap length: 38'-0\" -> 80'-0\"")));

        // A path that does not read says so, and Return again on a good one brings the list back.
        path->selectAll();
        QTest::keyClicks(path, QStringLiteral("nowhere.ebnt"));
        QTest::keyClick(path, Qt::Key_Return);
        QVERIFY(compare->isVisible());
        QVERIFY(!compare->list()->toPlainText().contains(QStringLiteral("Bent type")));
        compare->close();
    }

    void closingTheWindowAsks() {
        app->ports.answers = {MsgAnswer::No};
        QVERIFY(!window->close());
        QVERIFY(window->isVisible());
        QCOMPARE(app->ports.messages.back().title, std::string("Confirm Exit"));
        app->ports.answers = {MsgAnswer::Yes};
        QVERIFY(window->close());
    }

    QAction* action(const char* name) {
        auto* a = window->findChild<QAction*>(QString::fromLatin1(name));
        if (!a) qFatal("no action %s", name);
        return a;
    }

    // Ctrl+Z in a field takes back its own typing first, then the steps
    // before it, and the focus goes back to where each step was made.
    void undoInAFieldTakesBackItsTypingThenTheStepsBefore() {
        window->tabs()->setCurrentIndex(1);
        auto* width = find<QLineEdit>("txtCapWidth");
        auto* depth = find<QLineEdit>("txtCapDepth");
        QVERIFY(!action("mnuUndo")->isEnabled());
        width->setFocus(Qt::MouseFocusReason);
        QTest::keyClicks(width, QStringLiteral("4"));
        depth->setFocus(Qt::TabFocusReason);
        QCOMPARE(width->text(), QStringLiteral("4.0000"));
        QTest::keyClicks(depth, QStringLiteral("5"));
        QVERIFY(action("mnuUndo")->isEnabled());
        QTest::keyClick(depth, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(depth->text(), QStringLiteral("2.0000"));
        QCOMPARE(width->text(), QStringLiteral("4.0000"));
        QVERIFY(action("mnuRedo")->isEnabled());
        QVERIFY2(action("mnuRedo")->text().startsWith(QStringLiteral("Redo ")), qPrintable(action("mnuRedo")->text()));
        QTest::keyClick(depth, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(depth->text(), QStringLiteral("5"));
        QTest::keyClick(depth, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(depth, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(width->text(), QStringLiteral("3.0000"));
        QCOMPARE((*app)->text(Ctl::txtCapWidth), std::string("3.0000"));
        QTRY_COMPARE(QApplication::focusWidget(), width);
        QVERIFY(!action("mnuUndo")->isEnabled());
        QVERIFY(!window->isWindowModified());
    }

    // A bent-table command is one step, named in the Edit menu; undoing it
    // brings the table's page to the front.
    void theEditMenuNamesTheBentTableStep() {
        window->tabs()->setCurrentIndex(5);
        addBent4();
        QCOMPARE(window->grid()->model()->rowCount(), 1);
        QCOMPARE(action("mnuUndo")->text(), QStringLiteral("Undo Add Bent 4"));
        window->tabs()->setCurrentIndex(0);
        action("mnuUndo")->trigger();
        QCOMPARE(window->grid()->model()->rowCount(), 0);
        QCOMPARE(window->tabs()->currentIndex(), 5);
        QCOMPARE(find<QLineEdit>("txtBentNoPI")->text(), QStringLiteral("4"));
        QCOMPARE(action("mnuRedo")->text(), QStringLiteral("Redo Add Bent 4"));
        action("mnuRedo")->trigger();
        QCOMPARE(window->grid()->model()->rowCount(), 1);
        QVERIFY(app->ports.messages.empty());
    }

    // Pictures of every tab at 1366 x 768, for a person to look at; each
    // shows its page's fields inside the window.
    void everyTabRendersAtTheSmallestSupportedSize() {
        for (int i = 0; i < window->tabs()->count(); ++i) {
            if (!window->tabs()->isTabVisible(i)) continue;
            window->tabs()->setCurrentIndex(i);
            QApplication::processEvents();
            const QImage shot = window->grab().toImage();
            QVERIFY(!shot.isNull());
            shot.save(QStringLiteral("tab-%1.png").arg(i));
            int shown = 0;
            for (auto* field : window->tabs()->currentWidget()->findChildren<QWidget*>()) {
                if (!field->isVisible() || !(qobject_cast<QLineEdit*>(field) || qobject_cast<QComboBox*>(field)))
                    continue;
                ++shown;
                const QRect r(field->mapTo(window.get(), QPoint(0, 0)), field->size());
                QVERIFY2(r.width() > 20 && r.height() > 10, qPrintable(field->objectName()));
                QVERIFY2(r.left() >= 0 && r.left() < window->width(), qPrintable(field->objectName()));
                // A choice shows its longest item whole.
                if (auto* box = qobject_cast<QComboBox*>(field))
                    for (int k = 0; k < box->count(); ++k)
                        QVERIFY2(box->fontMetrics().horizontalAdvance(box->itemText(k)) + 8 <= box->width(),
                                 qPrintable(box->objectName() + QLatin1Char(' ') + box->itemText(k)));
            }
            QVERIFY2(shown > 0, qPrintable(window->tabs()->tabText(i)));
        }
    }
};

} // namespace tw

QTEST_MAIN(tw::MainWindowTest)
#include "MainWindowTest.moc"
