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

#include <algorithm>
#include <optional>

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
    // The engineer's first sight comes before the main window is built; it
    // is built while the splash is read, ready for OK.
    void theSplashShowsBeforeTheMainWindowIsBuilt() {
        struct Watch : QObject {
            std::optional<bool> mainAtFirstPaint;
            bool mainWhileSplash = false;
            static bool mainExists() {
                const QWidgetList all = QApplication::topLevelWidgets();
                return std::any_of(all.begin(), all.end(), [](QWidget* w) { return qobject_cast<MainWindow*>(w); });
            }
            bool eventFilter(QObject* o, QEvent* e) override {
                if (e->type() == QEvent::Paint && o->objectName() == QLatin1String("frmSplash") && !mainAtFirstPaint)
                    mainAtFirstPaint = mainExists();
                return false;
            }
        } watch;
        qApp->installEventFilter(&watch);
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (watch.mainAtFirstPaint && Watch::mainExists()) {
                watch.mainWhileSplash = true;
                QCoreApplication::exit(0);
            }
        });
        poll.start(5);
        QTimer::singleShot(10000, [] { QCoreApplication::exit(1); });
        int argc = 1;
        char name[] = "tarnwick";
        char* argv[] = {name, nullptr};
        const int status = runGui(argc, argv, TW_PROGRAM_DIR, {});
        qApp->removeEventFilter(&watch);
        QCOMPARE(status, 0);
        QVERIFY(watch.mainAtFirstPaint.has_value());
        QVERIFY2(!*watch.mainAtFirstPaint, "the main window was built before the splash was painted");
        QVERIFY(watch.mainWhileSplash);
    }

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
