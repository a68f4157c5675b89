// SPDX-License-Identifier: Apache-2.0
// The window as a keyboard user meets it: every Tab stop of every page is
// visible, inside the window and marked when it has the focus; the small
// windows close on Esc and come back where they were left; application
// shortcuts reach the window from a text field that has no use for them;
// every input says what it is to the mouse and to a screen reader.
#include "ProgramWindows.h"

#include "gui/CompareWindow.h"
#include "gui/PutAsideWork.h"
#include "gui/RunOutputs.h"

#include <QAction>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>

namespace tw {

class KeyboardTest : public QObject, public test::ProgramWindows {
    Q_OBJECT

    // Whether the widget looks different with the focus than without it.
    static bool marksFocus(QWidget* w) {
        w->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        const QImage focused = w->grab().toImage();
        w->clearFocus();
        QApplication::processEvents();
        const QImage unfocused = w->grab().toImage();
        w->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        return focused != unfocused;
    }
    static QString nameOf(const QWidget* w) {
        const auto* l = qobject_cast<const QLabel*>(w);
        return QStringLiteral("%1 \"%2\"%3")
            .arg(QLatin1String(w->metaObject()->className()), w->objectName(),
                 l ? QStringLiteral(" (%1)").arg(l->text()) : QString());
    }

  private slots:
    void init() {
        makeProgram();
        startMainWindow();
        app->actions.apply(cmd::OpenPath{TW_SOURCE_DIR "/samples/end-with-backwall.ebnt"});
        QApplication::processEvents();
    }
    void cleanup() { endProgram(); }

    void everyTabStopOfEveryPageIsVisibleInsideTheWindowAndMarked() {
        QTabWidget* tabs = main().tabs();
        const QRect window = main().rect();
        for (int page = 0; page < tabs->count(); ++page) {
            if (!tabs->isTabVisible(page)) continue;
            tabs->setCurrentIndex(page);
            tabs->tabBar()->setFocus(Qt::TabFocusReason);
            QApplication::processEvents();
            std::vector<QWidget*> seen;
            QVERIFY2(QApplication::focusWidget(), "the window has no focus");
            for (int step = 0; step < 400; ++step) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                QWidget* w = QApplication::focusWidget();
                QVERIFY2(w, qPrintable(QStringLiteral("page %1: the focus left the window").arg(page)));
                if (std::find(seen.begin(), seen.end(), w) != seen.end()) break;
                seen.push_back(w);
                const QString where = QStringLiteral("page %1, stop %2: %3").arg(page).arg(step).arg(nameOf(w));
                QVERIFY2(w->isVisible(), qPrintable(where + " is hidden"));
                const QRect r(w->mapTo(&main(), QPoint()), w->size());
                QVERIFY2(window.contains(r.center()), qPrintable(where + " lies outside the window"));
                QVERIFY2(marksFocus(w), qPrintable(where + " shows no focus marker"));
            }
            QVERIFY2(seen.size() > 3, qPrintable(QStringLiteral("page %1 has %2 stops").arg(page).arg(seen.size())));
        }
    }

    void theSketchLinksAreReachedAndOpenedFromTheKeyboard() {
        QWidget* link = main().findChild<QWidget*>(QStringLiteral("lblViewDimension"));
        QVERIFY(link && (link->focusPolicy() & Qt::TabFocus));
        link->setFocus(Qt::TabFocusReason);
        QTest::keyClick(link, Qt::Key_Return);
        QApplication::processEvents();
        QVERIFY(app->form(FormId::Picture).loaded);
    }

    void theSmallWindowsCloseOnEscAndComeBackWhereTheyWereLeft() {
        main().findChild<QAction*>(QStringLiteral("actionPutAsideWork"))->trigger();
        PutAsideWindow* work = main().putAsideWork();
        QVERIFY(QTest::qWaitForWindowExposed(work));
        const QRect screen = main().screen()->availableGeometry();
        QVERIFY(screen.contains(work->frameGeometry().center()));
        work->resize(500, 260);
        work->move(screen.topLeft() + QPoint(40, 60));
        QApplication::processEvents();
        const QRect left = work->geometry();
        QTest::keyClick(work, Qt::Key_Escape);
        QVERIFY(!work->isVisible());
        main().findChild<QAction*>(QStringLiteral("actionPutAsideWork"))->trigger();
        QVERIFY(QTest::qWaitForWindowExposed(work));
        QCOMPARE(work->size(), left.size());

        main().findChild<QAction*>(QStringLiteral("viewRunOutputs"))->trigger();
        RunOutputsWindow* outputs = main().runOutputs();
        QVERIFY(QTest::qWaitForWindowExposed(outputs));
        QTest::keyClick(outputs->list(), Qt::Key_Escape);
        QVERIFY(!outputs->isVisible());
    }

    void anApplicationShortcutReachesTheWindowFromATextField() {
        main().buildAllPages();
        auto* title = main().findChild<QLineEdit*>(QStringLiteral("txtProjectInfo(0)"));
        QAction* exportReport = main().findChild<QAction*>(QStringLiteral("actionExportReport"));
        exportReport->disconnect(); // the test asks whether it is triggered, not for its dialog
        QSignalSpy triggered(exportReport, &QAction::triggered);
        main().tabs()->setCurrentIndex(0);
        title->setFocus();
        QApplication::processEvents();
        QTest::keyClick(title, Qt::Key_E, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 1);
        // The field's own keys stay its own: Ctrl+Z undoes the typing in it.
        QTest::keyClicks(title, QStringLiteral("X"));
        QTest::keyClick(title, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(title->text().endsWith(QLatin1Char('X')), false);
    }

    void everyInputSaysWhatItIsToTheMouseAndToAScreenReader() {
        main().buildAllPages();
        for (QWidget* w : main().findChildren<QWidget*>()) {
            const auto id = main().binder().idOf(w);
            if (!id || (!qobject_cast<QLineEdit*>(w) && !qobject_cast<QComboBox*>(w))) continue;
            const QString tip = main().binder().toolTipFor(*id);
            QVERIFY2(tip.count(QLatin1Char('\n')) >= 1, qPrintable(w->objectName() + ": " + tip));
            QVERIFY2(!w->accessibleName().isEmpty(), qPrintable(w->objectName()));
            if (qobject_cast<QComboBox*>(w))
                QVERIFY2(tip.contains(QStringLiteral("Choices: ")), qPrintable(w->objectName() + ": " + tip));
        }
        QCOMPARE(main().binder().toolTipFor(Ctl::cboTybent),
                 QStringLiteral("Select the type of bent\nChoices: Pile End Bent without Backwall, Pile End Bent with "
                                "Backwall, Pile Intermediate Bent"));
        QCOMPARE(main().findChild<QWidget*>(QStringLiteral("txtCapWidth"))->accessibleName(),
                 QStringLiteral("Enter the cap width"));
    }
};

} // namespace tw

QTEST_MAIN(tw::KeyboardTest)
#include "KeyboardTest.moc"
