// The window mirrors the form data and hands widget events to the core.
#include "ShownWindow.h"

#include "gui/BentTable.h"
#include "gui/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

namespace tw {

class MainWindowTest : public QObject, public test::ShownWindow {
    Q_OBJECT

    template <class W> W* find(const char* name) {
        auto* w = window->findChild<W*>(QString::fromLatin1(name));
        if (!w) qFatal("no widget %s", name);
        return w;
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

    void theGridShowsTheBentsTheCoreHolds() {
        window->tabs()->setCurrentIndex(5);
        (*app)->actions.edit(Ctl::txtBentNoPI, "4");
        for (int i = 0; i < 4; ++i)
            (*app)->actions.edit(CtlId(Ctl::txtEStepPI, i), "101.25");
        (*app)->actions.edit(Ctl::txtLwingwallElevation, "104.00");
        (*app)->actions.edit(Ctl::txtRwingwallElevation, "104.50");
        QTest::mouseClick(find<QPushButton>("cmdQuantity(0)"), Qt::LeftButton);
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

    void closingTheWindowAsks() {
        app->ports.answers = {MsgAnswer::No};
        QVERIFY(!window->close());
        QVERIFY(window->isVisible());
        QCOMPARE(app->ports.messages.back().title, std::string("Confirm Exit"));
        app->ports.answers = {MsgAnswer::Yes};
        QVERIFY(window->close());
    }

    // Pictures of every tab at 1366 x 768, for a person to look at.
    void everyTabRendersAtTheSmallestSupportedSize() {
        for (int i = 0; i < window->tabs()->count(); ++i) {
            window->tabs()->setCurrentIndex(i);
            QApplication::processEvents();
            const QImage shot = window->grab().toImage();
            QVERIFY(!shot.isNull());
            shot.save(QStringLiteral("tab-%1.png").arg(i));
        }
    }
};

} // namespace tw

QTEST_MAIN(tw::MainWindowTest)
#include "MainWindowTest.moc"
