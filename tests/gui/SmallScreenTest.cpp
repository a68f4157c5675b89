// SPDX-License-Identifier: Apache-2.0
// The window on a 1024 x 640 screen with the drawing pane open: it fits,
// its View menu brings back what was closed, its fields say what they take,
// and a closing field's text can be read on its red or yellow.
#include "../unit/LargestProject.h"
#include "PaneChecks.h"
#include "ProgramWindows.h"

#include "core/form/MainForm.h"
#include "gui/Binder.h"
#include "gui/DrawingPane.h"
#include "gui/GuiPorts.h"
#include "gui/LaidOutView.h"
#include "gui/MainWindow.h"
#include "gui/RunOutputs.h"
#include "gui/StatusMessages.h"
#include "gui/WindowSet.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

#include <fstream>

#include <cmath>

namespace tw {

namespace {

// The relative luminance of a colour, and the contrast of two (WCAG's formulas).
double luminance(const QColor& c) {
    auto lin = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * lin(c.redF()) + 0.7152 * lin(c.greenF()) + 0.0722 * lin(c.blueF());
}
double contrast(const QColor& a, const QColor& b) {
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

} // namespace

class SmallScreenTest : public QObject, public test::ProgramWindows {
    Q_OBJECT

    QAction* action(const char* name) {
        auto* a = main().findChild<QAction*>(QString::fromLatin1(name));
        if (!a) qFatal("no action %s", name);
        return a;
    }
    QLineEdit* field(const char* name) {
        main().buildAllPages();
        auto* e = main().findChild<QLineEdit*>(QString::fromLatin1(name));
        if (!e) qFatal("no field %s", name);
        return e;
    }

  private slots:
    void init() {
        makeProgram();
        startMainWindow();
    }
    void cleanup() { endProgram(); }

    void theWindowFitsTheScreenWithTheDrawingPaneOpen() {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QCOMPARE(screen.width(), 1024);
        QVERIFY(main().drawingPane()->isVisible());
        // Long words in the status bar do not widen the window either.
        app->actions.type(Ctl::txtCapLength, "84");
        app->actions.leave(Ctl::txtCapLength);
        QApplication::processEvents();
        QVERIFY2(main().minimumSizeHint().width() <= 1024,
                 qPrintable(QString::number(main().minimumSizeHint().width())));
        main().resize(1024, 600);
        QApplication::processEvents();
        QVERIFY2(main().frameGeometry().width() <= 1024 + 16, qPrintable(QString::number(main().width())));
        QVERIFY(main().drawingPane()->isVisible());
        QVERIFY(main().drawingPane()->width() >= 200);
    }

    void onThisScreenTooEverySampleFillsThePaneAndNothingTouchesALabel() {
        LaidOutView& view = *main().drawingPane()->view();
        for (const char* sample : {"intermediate", "end-with-backwall", "end-without-backwall", "twelve-beams"}) {
            app->actions.apply(cmd::OpenPath{TW_SOURCE_DIR "/samples/" + std::string(sample) + ".ebnt"});
            for (const bool elevation : {false, true}) {
                app->actions.focus(elevation ? CtlId(Ctl::txtEStepPI, 0) : CtlId(Ctl::txtCapLength));
                QApplication::processEvents();
                const QString fault = test::paneFaults(view);
                QVERIFY2(fault.isEmpty(),
                         qPrintable(QStringLiteral("%1, %2: ").arg(sample, elevation ? "elevation" : "plan") + fault));
            }
        }
    }

    // Every page built late (as each tab is first shown) must not push the
    // window, or the pane beside it, past the screen: with every sample and
    // with the largest project the program allows.
    void theWindowStillFitsOnceEveryPageOfEveryProjectHasBeenShown_data() {
        QTest::addColumn<QString>("project");
        for (const char* sample : {"intermediate", "end-without-backwall", "end-with-backwall", "twelve-beams"})
            QTest::newRow(sample) << QStringLiteral(TW_SOURCE_DIR "/samples/%1.ebnt").arg(QLatin1String(sample));
        QTest::newRow("largest") << QString();
    }
    void theWindowStillFitsOnceEveryPageOfEveryProjectHasBeenShown() {
        QFETCH(QString, project);
        if (project.isEmpty())
            QVERIFY(test::openAs(*app, test::made(test::fillLargestProject),
                                 QDir::temp().filePath(QStringLiteral("tw-small-screen-largest.ebnt")).toStdString()));
        else
            app->actions.apply(cmd::OpenPath{project.toStdString()});
        QVERIFY(project.isEmpty() || app->project().currentFile == project.toStdString());
        main().resize(1024, 600);
        QTabWidget* tabs = main().tabs();
        for (int i = 0; i < tabs->count(); ++i) {
            if (!tabs->isTabVisible(i)) continue;
            tabs->setCurrentIndex(i);
            QApplication::processEvents();
        }
        QApplication::processEvents();
        const int wanted = main().minimumSizeHint().width();
        QVERIFY2(wanted <= 1024, qPrintable(QStringLiteral("the window wants %1 px").arg(wanted)));
        QVERIFY2(main().frameGeometry().right() < 1024 + 8,
                 qPrintable(QString::number(main().frameGeometry().right())));
        const QRect pane(main().drawingPane()->mapTo(&main(), QPoint()), main().drawingPane()->size());
        QVERIFY(main().drawingPane()->isVisible());
        QVERIFY2(pane.right() <= main().width(), qPrintable(QString::number(pane.right())));
        QVERIFY(main().drawingPane()->width() >= 200);
    }

    void theViewMenuShowsAndHidesThePaneTheToolbarAndTheStatusBar() {
        auto* bar = main().findChild<QToolBar*>(QStringLiteral("Toolbar1"));
        QCOMPARE(bar->windowTitle(), QStringLiteral("Toolbar"));
        const std::pair<const char*, QWidget*> parts[] = {
            {"viewDrawingPane", main().drawingPane()}, {"viewToolbar", bar}, {"viewStatusBar", main().statusBar()}};
        for (const auto& [name, widget] : parts) {
            QAction* a = action(name);
            QVERIFY2(a->isCheckable() && a->isChecked(), name);
            a->trigger();
            QApplication::processEvents();
            QVERIFY2(!widget->isVisible(), name);
            QVERIFY2(!a->isChecked(), name);
            a->trigger();
            QApplication::processEvents();
            QVERIFY2(widget->isVisible(), name);
        }
        QCOMPARE(action("mnuSaveAs")->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    }

    void everyFieldSaysItsPromptUnitAndLimits() {
        main().buildAllPages();
        const QString capLength = main().binder().toolTipFor(Ctl::txtCapLength);
        QVERIFY2(capLength.contains(QStringLiteral("at most 99 ft")), qPrintable(capLength));
        QVERIFY2(capLength.contains(QStringLiteral("length of the cap"), Qt::CaseInsensitive), qPrintable(capLength));
        const QString width = main().binder().toolTipFor(Ctl::txtCapWidth);
        QVERIFY2(width.contains(QStringLiteral("ft")) && width.contains(QStringLiteral("99.9999")), qPrintable(width));
        const QString distance = main().binder().toolTipFor(CtlId(Ctl::txtCenterline, 1));
        QVERIFY2(distance.startsWith(QStringLiteral("Beam 1 to beam 2")), qPrintable(distance));
        const QString minutes = main().binder().toolTipFor(CtlId(Ctl::txtBeamangleM, 0));
        QVERIFY2(minutes.contains(QStringLiteral("minutes")), qPrintable(minutes));
        for (QLineEdit* e : main().findChildren<QLineEdit*>())
            if (auto id = main().binder().idOf(e))
                QVERIFY2(!main().binder().toolTipFor(*id).isEmpty(), qPrintable(e->objectName()));
    }

    void closingFieldsKeepTheirColoursAndTheirTextReads() {
        app->actions.type(Ctl::txtCapLength, "40");
        app->actions.leave(Ctl::txtCapLength);
        app->actions.type(CtlId(Ctl::txtCenterline, 0), "10");
        app->actions.leave(CtlId(Ctl::txtCenterline, 0));
        QApplication::processEvents();
        QLineEdit* closing = field("txtCenterline(20)");
        QCOMPARE(closing->palette().color(QPalette::Base), QColor(255, 255, 0));
        QVERIFY(contrast(closing->palette().color(QPalette::Base), closing->palette().color(QPalette::Text)) >= 4.5);
        app->actions.type(CtlId(Ctl::txtCenterline, 0), "50");
        app->actions.leave(CtlId(Ctl::txtCenterline, 0));
        QApplication::processEvents();
        QCOMPARE(closing->palette().color(QPalette::Base), QColor(255, 0, 0));
        // Bold text on red: the contrast large text needs.
        QVERIFY(closing->font().bold());
        QVERIFY(contrast(closing->palette().color(QPalette::Base), closing->palette().color(QPalette::Text)) >= 3.0);
        QCOMPARE(closing->palette().color(QPalette::Text), QColor(Qt::white));
    }

    void runOutputsListsTheNineOutputsAndPreviewsThemReadOnly() {
        QTemporaryDir dir;
        const QString project = dir.filePath(QStringLiteral("bent.ebnt"));
        std::ofstream(dir.filePath(QStringLiteral("bent.ebntc")).toStdString(), std::ios::binary)
            << "CONCRETE LINE 1\r\nCONCRETE LINE 2\r\n";
        std::ofstream(dir.filePath(QStringLiteral("bente.dgn")).toStdString(), std::ios::binary) << "dgn";
        QVERIFY(test::openAs(*app, defaultProject(), project.toStdString()));
        action("viewRunOutputs")->trigger();
        RunOutputsWindow* outputs = main().runOutputs();
        QVERIFY(outputs && outputs->isVisible() && !outputs->isModal());
        QTreeWidget* list = outputs->list();
        QCOMPARE(list->topLevelItemCount(), 9);
        QCOMPARE(list->topLevelItem(0)->text(1), QStringLiteral("bent.ebntc"));
        QVERIFY(list->topLevelItem(0)->text(2).contains(QStringLiteral("34")));
        QVERIFY(!list->topLevelItem(0)->text(3).isEmpty());
        QCOMPARE(list->topLevelItem(1)->text(2), QStringLiteral("not written"));
        QCOMPARE(list->topLevelItem(8)->text(1), QStringLiteral("bente.dgn"));
        outputs->open(0);
        auto* preview = outputs->findChild<TextPreview*>();
        QVERIFY(preview && preview->isVisible());
        QVERIFY(preview->text()->isReadOnly());
        QCOMPARE(preview->text()->toPlainText(), QStringLiteral("CONCRETE LINE 1\nCONCRETE LINE 2\n"));
        // The main window goes on taking work while the list stands.
        app->actions.type(Ctl::txtCapWidth, "3");
        QCOMPARE(app->text(Ctl::txtCapWidth), std::string("3"));
    }

    void theStatusBarAndThePaneNameClosingValuesNotYetUpToDate() {
        app->actions.type(Ctl::txtCapLength, "80");
        app->actions.selectTab(1);
        app->actions.type(Ctl::txtCapLength, "84");
        app->actions.leave(Ctl::txtCapLength);
        QApplication::processEvents();
        StatusMessages* words = main().messages();
        QVERIFY2(words->shownText().contains(QStringLiteral("Centerline Distance")), qPrintable(words->shownText()));
        // Longer than the bar: shortened, whole in its tooltip.
        auto* shown = words->findChild<QWidget*>(QStringLiteral("statusMessage"));
        QVERIFY(shown->width() < shown->fontMetrics().horizontalAdvance(words->shownText()));
        QCOMPARE(shown->toolTip(), words->shownText());
        QLabel* pane = main().drawingPane()->staleNote();
        QVERIFY(pane->isVisible());
        QVERIFY2(pane->text().contains(QStringLiteral("when the tab changes")), qPrintable(pane->text()));
        app->actions.selectTab(2);
        QApplication::processEvents();
        QVERIFY(words->shownText().isEmpty());
        QVERIFY(!pane->isVisible());
    }
};

} // namespace tw

QTEST_MAIN(tw::SmallScreenTest)
#include "SmallScreenTest.moc"
