// SPDX-License-Identifier: Apache-2.0
// The window's side of templates and of pasting bents over the table: File >
// New from Template lists the templates in a small window that fits the
// screen and closes on Esc, and starts a project from one; File > Save as
// Template keeps the form under a name; Paste Bents of bents the table holds
// offers Paste Over Bents in the status bar, one click away.
#include "ProgramWindows.h"

#include "gui/StatusMessages.h"
#include "gui/TemplatesWindow.h"
#include "platform/TemplateStore.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>

namespace tw {

class TemplatesWindowTest : public QObject, public test::ProgramWindows {
    Q_OBJECT

    TemplatesWindow* openTemplates() {
        main().findChild<QAction*>(QStringLiteral("actionNewFromTemplate"))->trigger();
        TemplatesWindow* w = main().templates();
        if (w) (void)QTest::qWaitForWindowExposed(w);
        return w;
    }
    int rowOf(QTreeWidget* list, const QString& name) {
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            if (list->topLevelItem(i)->text(0) == name) return i;
        return -1;
    }

  private slots:
    void init() {
        QDir(TemplateStore::defaultUserFolder()).removeRecursively();
        makeProgram();
        startMainWindow();
        // The program's words to the status bar, as the window's start wires them.
        ports->onNotice = [this](const std::string& text) { main().messages()->notice(QString::fromStdString(text)); };
    }
    void cleanup() { endProgram(); }

    void theTemplatesListFitsTheScreenClosesOnEscAndStartsAProject() {
        TemplatesWindow* w = openTemplates();
        QVERIFY(w && w->isVisible() && !w->isModal());
        QVERIFY2(QGuiApplication::primaryScreen()->availableGeometry().contains(w->frameGeometry()),
                 qPrintable(QStringLiteral("%1,%2 %3x%4").arg(w->x()).arg(w->y()).arg(w->width()).arg(w->height())));
        QTreeWidget* list = w->list();
        QCOMPARE(list->topLevelItemCount(), 3); // the shipped ones, one per bent type
        const int row = rowOf(list, QStringLiteral("end-with-backwall"));
        QVERIFY(row >= 0);
        QCOMPARE(list->topLevelItem(row)->text(1), QStringLiteral("Pile End Bent with Backwall"));
        // Every column starts in view, the path's last.
        for (int c = 0; c < list->columnCount(); ++c)
            QVERIFY(list->header()->sectionViewportPosition(c) < list->viewport()->width() / 2 + 1 || c == 2);
        QVERIFY(list->header()->sectionViewportPosition(2) < list->viewport()->width());
        QTest::keyClick(list, Qt::Key_Escape);
        QVERIFY(!w->isVisible());

        openTemplates();
        list->setCurrentItem(list->topLevelItem(row));
        QTest::mouseClick(w->chooseButton(), Qt::LeftButton);
        QApplication::processEvents();
        QVERIFY(!w->isVisible());
        QCOMPARE(ports->messages.back(), std::string("Do you want to clear the form and start over?"));
        QCOMPARE(app->text(Ctl::cboTybent), std::string("Pile End Bent with Backwall"));
        QCOMPARE(app->project().bents(), 0);
        QVERIFY(app->modified());
        QCOMPARE(main().windowTitle(), QStringLiteral("Norvale-Tarnwick[*]"));
    }

    void theFormSavedAsATemplateIsListedFirst() {
        app->actions.apply(cmd::OpenPath{TW_SOURCE_DIR "/samples/end-without-backwall.ebnt"});
        main().askTemplateName = [](const QString& suggested) {
            return suggested == QStringLiteral("end-without-backwall") ? QStringLiteral("county") : QString();
        };
        main().findChild<QAction*>(QStringLiteral("actionSaveAsTemplate"))->trigger();
        QApplication::processEvents();
        const QString saved = TemplateStore::defaultUserFolder() + QStringLiteral("/county.ebnt");
        QVERIFY2(QFileInfo::exists(saved), qPrintable(main().messages()->shownText()));
        QVERIFY2(main().messages()->noticeText().startsWith(QStringLiteral("Template county saved as ")),
                 qPrintable(main().messages()->noticeText() + " / " + main().messages()->shownText()));
        // Saved again under the same name: asked first.
        QString asked;
        main().replaceTemplate = [&](const QString& name) {
            asked = name;
            return false;
        };
        main().findChild<QAction*>(QStringLiteral("actionSaveAsTemplate"))->trigger();
        QCOMPARE(asked, QStringLiteral("county"));
        TemplatesWindow* w = openTemplates();
        QCOMPARE(w->list()->topLevelItem(0)->text(0), QStringLiteral("county"));
        QCOMPARE(w->list()->topLevelItem(0)->text(1), QStringLiteral("Pile End Bent without Backwall"));
    }

    void bentsTheTableHoldsPastedAreOfferedPasteOver() {
        app->actions.apply(cmd::OpenPath{TW_SOURCE_DIR "/samples/intermediate.ebnt"});
        QApplication::clipboard()->setText(QStringLiteral("2\t\t\t99.5\t99.75\t101.58\t101.45\t101.32\n"));
        main().findChild<QAction*>(QStringLiteral("actionPasteBents"))->trigger();
        QApplication::processEvents();
        QPushButton* offer = main().messages()->commandButton();
        QVERIFY(offer->isVisible());
        QCOMPARE(offer->text(), QStringLiteral("Paste Over Bents"));
        QVERIFY(ports->messages.empty()); // no box: the repeated bent is not an error here
        QTest::mouseClick(offer, Qt::LeftButton);
        QApplication::processEvents();
        QCOMPARE(app->project().table().cell(1, 3), std::string("99.50"));
        QCOMPARE(app->project().bents(), 1);
        QCOMPARE(app->ctl(Ctl::mnuUndo).caption, std::string("Undo Paste Over Bents"));
        QVERIFY(!offer->isVisible());
    }
};

} // namespace tw

QTEST_MAIN(tw::TemplatesWindowTest)
#include "TemplatesWindowTest.moc"
