// SPDX-License-Identifier: Apache-2.0
// A window refreshed by each change set shows what a window refreshed in
// full shows: every recorded replay session played step by step against one
// program with two windows, the first told only what changed, the second
// copied whole, compared after every line. A change kind the change set
// forgets would leave a stale widget in the first.
#include "../unit/FakePorts.h"

#include "cli/Replay.h"
#include "cli/ReplayPorts.h"
#include "cli/ScriptReader.h"
#include "gui/BentTable.h"
#include "gui/MainWindow.h"
#include "platform/Platform.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace tw {

namespace {

namespace fs = std::filesystem;

// What a user sees of a window: each named widget's shown state and words, and the bent table.
QStringList seen(MainWindow& w) {
    QStringList lines;
    for (QWidget* c : w.findChildren<QWidget*>()) {
        if (c->objectName().isEmpty() || c->objectName().startsWith(QLatin1String("qt_"))) continue;
        QString line = c->objectName() + (c->isHidden() ? QStringLiteral(" hidden") : QString()) +
                       (c->isEnabled() ? QString() : QStringLiteral(" disabled"));
        if (auto* e = qobject_cast<QLineEdit*>(c))
            line += QStringLiteral(" [%1] %2 %3 ro=%4")
                        .arg(e->text(), e->palette().color(QPalette::Base).name())
                        .arg(e->font().bold())
                        .arg(e->isReadOnly());
        else if (auto* b = qobject_cast<QComboBox*>(c))
            line += QStringLiteral(" [%1/%2]").arg(b->currentIndex()).arg(b->count());
        else if (auto* l = qobject_cast<QLabel*>(c))
            line += QStringLiteral(" [%1]").arg(l->text());
        else if (auto* g = qobject_cast<QGroupBox*>(c))
            line += QStringLiteral(" [%1]").arg(g->title());
        else if (auto* p = qobject_cast<QPushButton*>(c))
            line += QStringLiteral(" [%1]").arg(p->text());
        lines << line;
    }
    const QTabWidget* tabs = w.tabs();
    for (int i = 0; i < tabs->count(); ++i)
        lines << QStringLiteral("tab %1 %2").arg(i).arg(tabs->isTabVisible(i));
    lines << QStringLiteral("title %1 %2").arg(w.windowTitle()).arg(w.isWindowModified());
    const QAbstractItemModel* grid = w.grid()->model();
    for (int r = -1; r < grid->rowCount(); ++r)
        for (int col = 0; col < grid->columnCount(); ++col)
            lines << QStringLiteral("cell %1 %2 %3")
                         .arg(r)
                         .arg(col)
                         .arg(r < 0 ? grid->headerData(col, Qt::Horizontal).toString()
                                    : grid->data(grid->index(r, col)).toString());
    return lines;
}

} // namespace

class RefreshTest : public QObject {
    Q_OBJECT

  private slots:
    void aRefreshByTheChangeSetShowsWhatAFullRefreshShows_data() {
        QTest::addColumn<QString>("caseDir");
        for (const auto& entry : fs::directory_iterator(TW_SOURCE_DIR "/tests/replay")) {
            const fs::path dir = entry.path();
            // Cases that run another command, or an engine of their own, are the headless front end's.
            if (!fs::exists(dir / "script.txt") || fs::exists(dir / "program-dir")) continue;
            QTest::newRow(dir.filename().c_str()) << QString::fromStdString(dir.string());
        }
    }
    void aRefreshByTheChangeSetShowsWhatAFullRefreshShows() {
        QFETCH(QString, caseDir);
        QTemporaryDir work;
        QVERIFY(work.isValid());
        const fs::path from = caseDir.toStdString(), to = work.path().toStdString();
        if (fs::exists(from / "files")) fs::copy(from / "files", to, fs::copy_options::recursive);
        qputenv("XDG_CONFIG_HOME", (work.path() + QStringLiteral("/xdg")).toLocal8Bit());
        qputenv("XDG_DATA_HOME", (work.path() + QStringLiteral("/xdg-data")).toLocal8Bit());

        std::ostringstream out, err;
        ReplayPorts user(out, to.string(), &err);
        Platform platform;
        ReplaySystem system(out, platform);
        App app(user, system, TW_PROGRAM_DIR);
        Replay replay(app, user, out, err);
        MainWindow told(app), whole(app);
        for (MainWindow* w : {&told, &whole}) {
            w->resize(1366, 768);
            w->buildAllPages();
        }
        app.actions.onChange([&](const ChangeSet& changes) { told.refresh(changes); });
        app.loadMainForm();
        told.refresh();

        std::ifstream script(from / "script.txt");
        std::string line;
        int n = 0;
        while (nextScriptLine(script, line) == ScriptLine::Read) {
            ++n;
            if (!replay.runLine(line, n)) break; // a case about script errors
            whole.refresh();
            const QStringList a = seen(told), b = seen(whole);
            QCOMPARE(a.size(), b.size());
            for (qsizetype i = 0; i < a.size(); ++i)
                QVERIFY2(a[i] == b[i],
                         qPrintable(QStringLiteral("line %1 (%2): by the change set \"%3\", in full \"%4\"")
                                        .arg(n)
                                        .arg(QString::fromStdString(line), a[i], b[i])));
            if (app.mainUnloaded()) break;
        }
    }
};

} // namespace tw

QTEST_MAIN(tw::RefreshTest)
#include "RefreshTest.moc"
