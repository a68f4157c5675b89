// SPDX-License-Identifier: Apache-2.0
// The window's side of work put aside and of words said where the eye is:
// the bar after a road discarded unsaved work and its Restore, File >
// Put-Aside Work, the balloon at the caret for a refused key, and the one
// click that brings stale closing values up to date.
#include "ProgramWindows.h"

#include "core/form/StandingNotes.h"
#include "gui/DrawingPane.h"
#include "gui/PutAsideWork.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QToolTip>
#include <QTreeWidget>

namespace tw {

class PutAsideWindowTest : public QObject, public test::ProgramWindows {
    Q_OBJECT

    std::vector<PutAsideBar*> bars() {
        std::vector<PutAsideBar*> found;
        for (auto* b : main().findChildren<PutAsideBar*>())
            if (b->isVisible()) found.push_back(b);
        return found;
    }
    // The sample opened and changed as an engineer would.
    void openAndChange() {
        app->actions.apply(cmd::OpenPath{TW_SOURCE_DIR "/samples/end-with-backwall.ebnt"});
        app->actions.type(CtlId(Ctl::txtProjectInfo, 0), " REVISED");
        app->actions.leave(CtlId(Ctl::txtProjectInfo, 0));
        QApplication::processEvents();
    }

  private slots:
    void init() {
        PutAsideStore store;
        for (const auto& c : store.list())
            store.remove(c);
        makeProgram();
        system->putAsideOnDisk = true;
        startMainWindow();
    }
    void cleanup() { endProgram(); }

    void aBarTellsOfTheWorkPutAsideAndRestoresItInOneClick() {
        openAndChange();
        const std::string changed = app->text(CtlId(Ctl::txtProjectInfo, 0));
        app->actions.click(Ctl::mnuNew); // answered Yes
        QApplication::processEvents();
        QCOMPARE(app->text(CtlId(Ctl::txtProjectInfo, 0)), std::string());
        const auto shown = bars();
        QCOMPARE(shown.size(), size_t(1));
        const QString said = shown[0]->text()->text();
        QVERIFY2(said.contains(QRegularExpression(QStringLiteral(
                     "^Unsaved changes to end-with-backwall\\.ebnt \\(\\d\\d:\\d\\d\\) were put aside$"))),
                 qPrintable(said));
        QVERIFY(shown[0]->restoreButton());
        QTest::mouseClick(shown[0]->restoreButton(), Qt::LeftButton);
        QApplication::processEvents();
        QCOMPARE(app->text(CtlId(Ctl::txtProjectInfo, 0)), changed);
        QVERIFY(app->modified());
        QVERIFY(main().isWindowModified());
        QVERIFY(main().windowTitle().contains(QStringLiteral("end-with-backwall.ebnt")));
        QVERIFY(bars().empty());
    }

    void putAsideWorkListsEveryCopyAndDeletesOne() {
        openAndChange();
        app->actions.apply(cmd::OpenPath{TW_SOURCE_DIR "/samples/intermediate.ebnt"});
        main().findChild<QAction*>(QStringLiteral("actionPutAsideWork"))->trigger();
        PutAsideWindow* work = main().putAsideWork();
        QVERIFY(work && work->isVisible() && !work->isModal());
        QTreeWidget* list = work->list();
        QCOMPARE(list->topLevelItemCount(), 1);
        QVERIFY(list->topLevelItem(0)->text(0).startsWith(QStringLiteral("end-with-backwall.ebnt")));
        QCOMPARE(list->topLevelItem(0)->text(2), QStringLiteral("1"));
        QVERIFY(list->topLevelItem(0)->text(3).endsWith(QStringLiteral("/samples/end-with-backwall.ebnt")));
        QString asked;
        work->confirm = [&](const QString& q) {
            asked = q;
            return true;
        };
        work->deleteSelected();
        QVERIFY(asked.contains(QStringLiteral("cannot be brought back")));
        QCOMPARE(list->topLevelItemCount(), 0);
        QVERIFY(PutAsideStore().list().empty());
    }

    void aRefusedKeyIsSaidAtTheCaretAndTheFieldStaysAsItWas() {
        main().buildAllPages();
        main().tabs()->setCurrentIndex(1);
        auto* width = main().findChild<QLineEdit*>(QStringLiteral("txtCapWidth"));
        QVERIFY(width && width->isVisible());
        width->setFocus();
        QApplication::processEvents();
        QTest::keyClicks(width, QStringLiteral("3"));
        const int caret = width->cursorPosition();
        QTest::keyClicks(width, QStringLiteral(","));
        QApplication::processEvents();
        QCOMPARE(width->text(), QStringLiteral("3"));
        QCOMPARE(width->cursorPosition(), caret);
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), QString::fromStdString(statusBarText(app->session())));
        QVERIFY(QToolTip::text().startsWith(QStringLiteral("',' not taken.")));
        // Gone with the next key.
        QTest::keyClicks(width, QStringLiteral("5"));
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(width->text(), QStringLiteral("35"));
    }

    void staleClosingValuesAreBroughtUpToDateInOneClickAsOneStep() {
        app->actions.type(Ctl::txtCapLength, "80");
        app->actions.selectTab(1);
        app->actions.edit(Ctl::txtCapLength, "84");
        app->actions.leave(Ctl::txtCapLength);
        QApplication::processEvents();
        QPushButton* status = main().bringUpToDateButton();
        QPushButton* pane = main().drawingPane()->bringUpToDateButton();
        QVERIFY(status->isVisible());
        QTRY_VERIFY(pane->isVisible());
        QTest::mouseClick(status, Qt::LeftButton);
        QApplication::processEvents();
        QVERIFY(staleClosingNote(app->session()).empty());
        QVERIFY2(staleClosingNote(app->session()).empty(), staleClosingNote(app->session()).c_str());
        QCOMPARE(QString::fromStdString(app->text(CtlId(Ctl::txtCenterline, 20))), QStringLiteral("84.0000"));
        QVERIFY(!status->isVisible());
        QVERIFY(!pane->isVisible());
        QCOMPARE(app->ctl(Ctl::mnuUndo).caption, std::string("Undo Bring Closing Values Up to Date"));
        app->actions.undo();
        QCOMPARE(app->text(CtlId(Ctl::txtCenterline, 20)), std::string("80.0000"));
    }
};

} // namespace tw

QTEST_MAIN(tw::PutAsideWindowTest)
#include "PutAsideWindowTest.moc"
