// SPDX-License-Identifier: Apache-2.0
// The window at a 1366 x 768 laptop: every window whole on the screen, the
// bent table with room for its rows and nothing cut off, scroll bars that
// move with the content, the wheel that scrolls rather than changes a value,
// the preview's size, and one file for one Print.
#include "Pdf.h"
#include "ProgramWindows.h"

#include "core/form/MainForm.h"
#include "gui/BentTable.h"
#include "gui/DrawingPane.h"
#include "gui/FormWindows.h"
#include "gui/GuiPorts.h"
#include "gui/MainWindow.h"
#include "gui/StatusMessages.h"
#include "gui/StylePictures.h"
#include "gui/WindowSet.h"
#include "gui/WrapLabel.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolBar>
#include <QWheelEvent>

#include <fstream>

namespace tw {

namespace {

QRect screenArea() { return QGuiApplication::primaryScreen()->availableGeometry(); }

bool onScreen(const QWidget* w) { return screenArea().contains(w->frameGeometry()); }

QString where(const QWidget* w) {
    const QRect f = w->frameGeometry();
    return QStringLiteral("%1 frame %2,%3 %4x%5")
        .arg(w->objectName())
        .arg(f.x())
        .arg(f.y())
        .arg(f.width())
        .arg(f.height());
}

void writeFile(const QString& path, const std::string& text) {
    std::ofstream(path.toStdString(), std::ios::binary) << text;
}

// The project with the widest bent table: backwall, twenty beams, two-digit
// bent numbers and values as wide as an elevation gets, pasted in.
void widestTable(App& app, int rows) {
    app.actions.choose(Ctl::cboTybent, 1);
    app.actions.choose(Ctl::cboNoBeam, 19);
    std::string text;
    for (int r = 0; r < rows; ++r) {
        text += std::to_string(99 - r);
        for (int c = 1; c < app.project().table().cols(); ++c)
            text += c % 2 ? "\t-999.99" : "\t1234.50";
        text += '\n';
    }
    app.actions.apply(cmd::PasteBents{text});
    QCOMPARE(app.project().bents(), rows);
}

// The program holding a project whose file is `path` (its outputs beside it).
void currentFile(App& app, const QString& path) { QVERIFY(test::openAs(app, defaultProject(), path.toStdString())); }

} // namespace

class WindowFitTest : public QObject, public test::ProgramWindows {
    Q_OBJECT

    QTemporaryDir dir;

    template <class W> W* find(const char* name) {
        main().buildAllPages();
        auto* w = main().findChild<W*>(QString::fromLatin1(name));
        if (!w) qFatal("no widget %s", name);
        return w;
    }

  private slots:
    // The style's icons read when first drawn are the style's own icons.
    void styleIconsReadLateAreTheStylesOwn() {
        LazyStyleIcons lazy;
        for (auto which : {QStyle::SP_ToolBarHorizontalExtensionButton, QStyle::SP_DialogOkButton,
                           QStyle::SP_MessageBoxWarning, QStyle::SP_ArrowLeft}) {
            const QIcon late = lazy.standardIcon(which);
            const QIcon now = lazy.baseStyle()->standardIcon(which);
            QVERIFY(!late.isNull());
            QCOMPARE(late.pixmap(16).toImage(), now.pixmap(16).toImage());
            QCOMPARE(late.pixmap(32).toImage(), now.pixmap(32).toImage());
        }
        // Read as PNG, nothing guessed: the same picture as a guess reads.
        const QString png = QStringLiteral(":/qt-project.org/styles/commonstyle/images/fusion_groupbox.png");
        QCOMPARE(readPixmap(png, "png").toImage(), QPixmap(png).toImage());
    }

    // A wrapped prompt measured once per text, font and width still measures
    // what QLabel would: a text or font that changes is measured again.
    void wrappedPromptsMeasureTheirTextAsItStands() {
        const QString text = QStringLiteral("Enter the longitudinal width of the fillet (measured perpendicular "
                                            "to the back face paving rest)");
        WrapLabel prompt(text);
        QLabel plain(text);
        for (QLabel* l : {static_cast<QLabel*>(&prompt), &plain}) {
            l->setWordWrap(true);
            l->setFixedWidth(180);
        }
        auto same = [&](const char* what) {
            QVERIFY2(prompt.sizeHint().height() == plain.heightForWidth(180), what);
            QCOMPARE(prompt.sizeHint().width(), 180);
            QCOMPARE(prompt.heightForWidth(180), plain.heightForWidth(180));
            QCOMPARE(prompt.heightForWidth(400), plain.heightForWidth(400));
        };
        same("as made");
        const int lines = prompt.sizeHint().height();
        for (QLabel* l : {static_cast<QLabel*>(&prompt), &plain})
            l->setText(text + QLatin1Char(' ') + text);
        same("a longer text");
        QVERIFY(prompt.sizeHint().height() > lines);
        QFont big = prompt.font();
        big.setPointSizeF(big.pointSizeF() * 1.5);
        for (QLabel* l : {static_cast<QLabel*>(&prompt), &plain})
            l->setFont(big);
        same("a larger font");
        // Not of a fixed width, it answers as QLabel does.
        WrapLabel free(text);
        QLabel freePlain(text);
        free.setWordWrap(true);
        freePlain.setWordWrap(true);
        QCOMPARE(free.sizeHint(), freePlain.sizeHint());
        QCOMPARE(free.minimumSizeHint(), freePlain.minimumSizeHint());
    }

    void init() {
        makeProgram();
        system->desktopOpens = false; // no browser: the guide shows inside
    }
    void cleanup() { endProgram(); }

    void everyWindowOpensWholeOnTheScreen() {
        app->start();
        QWidget* splash = windows->window(FormId::Splash);
        QVERIFY(QTest::qWaitForWindowExposed(splash));
        // A window manager frames a window a moment after it shows: wait for it to settle there.
        QTRY_VERIFY2(onScreen(splash), qPrintable(where(splash)));
        app->actions.click(Target(FormId::Splash, Ctl::cmdOK));
        QVERIFY(QTest::qWaitForWindowExposed(&main()));
        QTRY_VERIFY2(onScreen(&main()), qPrintable(where(&main())));
        // Centred, frame included (within the few pixels a frame not yet known can be off by).
        const QRect f = main().frameGeometry();
        QVERIFY2(std::abs(f.center().x() - screenArea().center().x()) <= 8, qPrintable(where(&main())));

        // A project with outputs, so Print and Preview have something to show.
        const QString project = dir.filePath(QStringLiteral("bent.ebnt"));
        std::string listing;
        for (int i = 0; i < 60; ++i)
            listing += "LINE " + std::to_string(i) + std::string(120, '-') + "\r\n";
        writeFile(dir.filePath(QStringLiteral("bent.ebntc")), listing);
        currentFile(*app, project);

        app->actions.click(Ctl::mnuAbout);
        app->actions.click(Ctl::mnuPrint);
        app->actions.click(Target(FormId::Printer, Ctl::printPreview));
        app->actions.click(Ctl::lblViewDimension);
        app->actions.click(Ctl::mnuTarnwickHelp);
        QApplication::processEvents();
        int shown = 0;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (!w->isVisible()) continue;
            ++shown;
            QTRY_VERIFY2(onScreen(w), qPrintable(where(w)));
        }
        QVERIFY2(shown >= 6, qPrintable(QString::number(shown))); // main, about, printer, preview, sketch, guide
        QVERIFY2(main().findChild<QTextBrowser*>() != nullptr, "the guide shows inside the program");
    }

    void thePreviewShowsAHundredColumnsAndFortyLinesFromTheTop() {
        startMainWindow();
        const QString project = dir.filePath(QStringLiteral("long.ebnt"));
        std::string listing;
        for (int i = 1; i <= 120; ++i)
            listing += "LINE " + std::to_string(i) + "\r\n";
        writeFile(dir.filePath(QStringLiteral("long.ebntc")), listing);
        currentFile(*app, project);
        app->actions.click(Ctl::mnuPrint);
        app->actions.click(Target(FormId::Printer, Ctl::printPreview));
        QWidget* preview = windows->window(FormId::Preview);
        QVERIFY(QTest::qWaitForWindowExposed(preview));
        auto* text = preview->findChild<QPlainTextEdit*>(QStringLiteral("rtOpen"));
        const QFontMetrics fm(text->font());
        QVERIFY2(text->viewport()->width() / fm.horizontalAdvance(QLatin1Char('M')) >= kPreviewColumns,
                 qPrintable(QString::number(text->viewport()->width())));
        QVERIFY2(text->viewport()->height() / fm.lineSpacing() >= kPreviewLines,
                 qPrintable(QString::number(text->viewport()->height())));
        QVERIFY(onScreen(preview));
        QCOMPARE(text->verticalScrollBar()->value(), 0);
        QCOMPARE(text->cursorForPosition(QPoint(4, 4)).block().text(), QStringLiteral("LINE 1"));
    }

    void theWidestBentTableShowsItsRowsAndEveryHeadingAndValueWhole() {
        startMainWindow();
        widestTable(*app, 30);
        main().tabs()->setCurrentIndex(5);
        app->actions.selectTab(5);
        QApplication::processEvents();
        FrozenColumnTable* table = main().grid();
        QCOMPARE(table->model()->columnCount(), 32);
        QVERIFY(onScreen(&main()));
        QVERIFY(main().drawingPane()->isVisible());
        const int rows = table->viewport()->height() / table->rowHeight(0);
        QVERIFY2(rows >= 12, qPrintable(QString::number(rows)));

        const QFontMetrics head(table->horizontalHeader()->font());
        const QFontMetrics cell(table->font());
        for (int c = 0; c < table->model()->columnCount(); ++c) {
            const QString heading = table->model()->headerData(c, Qt::Horizontal).toString();
            const QStringList lines = heading.split(QLatin1Char('\n'));
            for (const QString& line : lines)
                QVERIFY2(head.horizontalAdvance(line) + 8 <= table->columnWidth(c), qPrintable(heading));
            QVERIFY2(head.lineSpacing() * lines.size() <= table->horizontalHeader()->height(), qPrintable(heading));
            const QString value = table->model()->index(0, c).data().toString();
            QVERIFY2(cell.horizontalAdvance(value) + 8 <= table->columnWidth(c), qPrintable(value));
        }
        // The bent number stays in view when the table scrolls sideways.
        table->horizontalScrollBar()->setValue(table->horizontalScrollBar()->maximum());
        QApplication::processEvents();
        QTableView* frozen = table->frozenView();
        QVERIFY(frozen->isVisible());
        QCOMPARE(frozen->columnWidth(0), table->columnWidth(0));
        QCOMPARE(frozen->model()->index(0, 0).data().toString(), QStringLiteral("99"));
        // Row numbers at the left.
        QCOMPARE(table->model()->headerData(0, Qt::Vertical).toInt(), 1);
        QVERIFY(table->verticalHeader()->isVisible());
    }

    void scrollBarsMoveWithTheContent() {
        startMainWindow();
        widestTable(*app, 40);
        app->actions.selectTab(5);
        QApplication::processEvents();
        // The entry fields of a backwall bent with twenty beams are taller than the window.
        auto* entry = main().findChild<QLineEdit*>(QStringLiteral("txtBentNoPI"))->parentWidget();
        QScrollArea* area = nullptr;
        for (QWidget* w = entry; w && !area; w = w->parentWidget())
            area = qobject_cast<QScrollArea*>(w);
        QVERIFY(area);
        QScrollBar* bar = area->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        QVERIFY(!bar->invertedAppearance());
        QCOMPARE(bar->value(), 0);
        const int top = area->widget()->y();
        bar->setValue(bar->maximum());
        QVERIFY2(area->widget()->y() < top, "the content moves up as the bar's value grows");

        FrozenColumnTable* table = main().grid();
        QCOMPARE(table->rowAt(0), 0);
        table->verticalScrollBar()->setValue(5);
        QApplication::processEvents();
        QCOMPARE(table->rowAt(0), 5);
        QCOMPARE(table->frozenView()->rowAt(0), 5);
    }

    void theWheelOverAComboBoxWithoutTheFocusLeavesItsValue() {
        startMainWindow();
        auto* beams = find<QComboBox>("cboNoBeam");
        auto* title = find<QLineEdit>("txtProjectInfo(0)");
        title->setFocus();
        QVERIFY(!beams->hasFocus());
        const QPointF at(beams->width() / 2.0, beams->height() / 2.0);
        QWheelEvent wheel(at, beams->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(beams, &wheel);
        QCOMPARE(beams->currentText(), QStringLiteral("4"));
        QCOMPARE(app->text(Ctl::cboNoBeam), std::string("4"));
    }

    void sectionsThatDoNotApplyAreHiddenAndTabSkipsClosingFields() {
        startMainWindow();
        // Choosing the bent type again shows the pile-box section, though with
        // no pile boxes it holds nothing to show.
        app->actions.choose(Ctl::cboTybent, 0);
        QVERIFY(app->ctl(Ctl::Frame6).visible);
        QVERIFY(find<QGroupBox>("Frame6")->isHidden());
        app->actions.choose(Ctl::cboWingwallPileBox, 2);
        QVERIFY(!find<QGroupBox>("Frame6")->isHidden());
        // An intermediate bent has no wingwall tab at all.
        app->actions.choose(Ctl::cboTybent, 2);
        QVERIFY(!main().tabs()->isTabVisible(2));
        app->actions.choose(Ctl::cboTybent, 0);
        QVERIFY(main().tabs()->isTabVisible(2));

        // A closing field is read, not typed: Tab passes over it, and it says why it is coloured.
        app->actions.selectTab(3);
        app->actions.type(Ctl::txtCapLength, "40");
        app->actions.type(CtlId(Ctl::txtCenterline, 3), "5");
        app->actions.leave(CtlId(Ctl::txtCenterline, 3));
        auto* closing = find<QLineEdit>("txtCenterline(20)");
        QVERIFY(closing->isReadOnly());
        QVERIFY(!closing->toolTip().isEmpty());
        auto* last = find<QLineEdit>("txtCenterline(3)");
        last->setFocus(Qt::TabFocusReason);
        QTest::keyClick(last, Qt::Key_Tab);
        QVERIFY(QApplication::focusWidget() != closing);
    }

    void theTitleMarksUnsavedWorkAndTheStatusBarNamesTheFiles() {
        startMainWindow();
        QVERIFY(main().windowTitle().endsWith(QLatin1String("[*]")));
        QVERIFY(!main().isWindowModified());
        app->actions.type(Ctl::txtCapLength, "45");
        QVERIFY(main().isWindowModified());
        QCOMPARE(app->main().caption, std::string("Norvale-Tarnwick"));

        // Run on a project in a folder with a dot: the outputs go where its name is cut.
        const QString project = QDir(dir.path()).filePath(QStringLiteral("v1.2/bent.ebnt"));
        QVERIFY(QDir().mkpath(QFileInfo(project).path()));
        currentFile(*app, project);
        system->ini["microstation/dgnbatch"] = "/bin/true";
        app->actions.click(Ctl::mnuRun);
        QVERIFY(QFile::exists(project));
        auto* path = main().findChild<QLabel*>(QStringLiteral("currentFilePath"));
        QCOMPARE(path->text(), project);
        QVERIFY2(main().messages()->shownText().contains(dir.path()), qPrintable(main().messages()->shownText()));
    }

    void theToolbarSaysWhatEachButtonDoes() {
        auto* bar = main().findChild<QToolBar*>(QStringLiteral("Toolbar1"));
        QStringList keys, tips;
        for (QAction* a : bar->actions()) {
            if (a->isSeparator()) continue;
            keys << a->data().toString();
            tips << a->toolTip();
            QVERIFY(!a->icon().isNull());
        }
        QCOMPARE(keys, (QStringList{"New", "Open", "Save", "Run", "Print", "Exit", "Undo", "Redo"}));
        QVERIFY2(tips.contains(QStringLiteral("Undo (Ctrl+Z)")), qPrintable(tips.join('|')));
        QVERIFY2(tips.contains(QStringLiteral("Print (Ctrl+P)")), qPrintable(tips.join('|')));
        QVERIFY2(tips.contains(QStringLiteral("Run (F5)")), qPrintable(tips.join('|')));
    }

    void onePrintToAFileIsOneFileWithMarginsAndHeaders() {
        ports->pdf = dir.filePath(QStringLiteral("print.pdf"));
        QVERIFY(ports->printerDialog());
        PrintDocument first{"/jobs/sr12.egen", {}}, second{"/jobs/sr12.ebent", {}};
        for (int i = 0; i < 100; ++i)
            first.lines.push_back("GENERAL " + std::to_string(i));
        second.lines = {"BENT 1", "BENT 2"};
        ports->print(first);
        ports->print(second);
        ports->endPrintJob();
        QCOMPARE(QDir(dir.path()).entryList({QStringLiteral("*.pdf")}), QStringList{QStringLiteral("print.pdf")});
        QVERIFY2(test::pdfPages(ports->pdf) >= 3, qPrintable(QString::number(test::pdfPages(ports->pdf))));
        QProcess text;
        text.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), ports->pdf, QStringLiteral("-")});
        if (!text.waitForFinished(10000) || text.exitCode() != 0) QSKIP("pdftotext (poppler-utils) is not installed");
        const QString html = QString::fromUtf8(text.readAllStandardOutput());
        QVERIFY(html.contains(QLatin1String("sr12.egen")) && html.contains(QLatin1String("sr12.ebent")));
        QVERIFY(html.contains(QLatin1String(">Page<")));
        // Nothing closer than half an inch (36 points) to the left and top edges.
        const QRegularExpression box(QStringLiteral("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\""));
        for (auto m = box.globalMatch(html); m.hasNext();) {
            const auto word = m.next();
            QVERIFY2(word.captured(1).toDouble() >= 35.5, qPrintable(word.captured(0)));
            QVERIFY2(word.captured(2).toDouble() >= 35.5, qPrintable(word.captured(0)));
        }
    }
};

} // namespace tw

QTEST_MAIN(tw::WindowFitTest)
#include "WindowFitTest.moc"
