// SPDX-License-Identifier: Apache-2.0
// `tarnwick FILE`: the window starts as always and, once the splash is gone,
// opens FILE as File > Open does.
#include "../unit/FakePorts.h"
#include "gui/GuiMain.h"
#include "gui/MainWindow.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace tw {

class StartupTest : public QObject {
    Q_OBJECT

    // Whether Qt has loaded its image format plugins (and their libraries)
    // into this process.
    static bool imagePluginsLoaded() {
        QFile maps(QStringLiteral("/proc/self/maps"));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("/imageformats/");
    }

    // Runs the window on `file`, pressing the splash's OK, until the main
    // window shows a file's caption; returns the main window's title and the
    // texts of the named fields at that moment.
    static QStringList startOn(const std::string& file, const QStringList& fields) {
        QStringList seen;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            for (QWidget* w : QApplication::topLevelWidgets()) {
                if (!w->isVisible()) continue;
                if (w->objectName() == QLatin1String("frmSplash")) {
                    if (auto* ok = w->findChild<QPushButton*>(QStringLiteral("cmdOK"))) ok->click();
                } else if (auto* main = qobject_cast<MainWindow*>(w);
                           main && main->windowTitle().contains(QLatin1String(" - ["))) {
                    seen << main->windowTitle();
                    seen << (imagePluginsLoaded() ? QStringLiteral("image plugins loaded") : QString());
                    main->buildAllPages(); // pages not shown yet are built with what was opened
                    for (const QString& name : fields)
                        seen << main->findChild<QLineEdit*>(name)->text();
                    QCoreApplication::exit(0);
                    return;
                }
            }
        });
        poll.start(10);
        // A start-up that never gets there ends the run instead of hanging it.
        QTimer::singleShot(30000, [] { QCoreApplication::exit(1); });
        int argc = 1;
        char name[] = "tarnwick";
        char* argv[] = {name, nullptr};
        if (runGui(argc, argv, TW_PROGRAM_DIR, file) != 0) return {};
        return seen;
    }

  private slots:
    void aFileOnTheCommandLineOpensAfterTheSplash() {
        const std::string file = TW_SOURCE_DIR "/samples/end-with-backwall.ebnt";
        test::Program opened(TW_PROGRAM_DIR);
        opened.ports.files = {file};
        opened->actions.click(Ctl::mnuOpen);

        const QStringList fields = {QStringLiteral("txtProjectInfo(0)"), QStringLiteral("txtCapStep(0)")};
        const QStringList seen = startOn(file, fields);
        QCOMPARE(seen.value(0), QStringLiteral("Norvale-Tarnwick - [end-with-backwall.ebnt][*]"));
        // The window comes up without a guess at any picture's format, which
        // would load every image plugin installed.
        QCOMPARE(seen.value(1), QString());
        QCOMPARE(seen.value(2).toStdString(), opened->text(CtlId(Ctl::txtProjectInfo, 0)));
        QCOMPARE(seen.value(3).toStdString(), opened->text(CtlId(Ctl::txtCapStep, 0)));
    }
};

} // namespace tw

QTEST_MAIN(tw::StartupTest)
#include "StartupTest.moc"
