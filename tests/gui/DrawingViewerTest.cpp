// SPDX-License-Identifier: Apache-2.0
// The engine's drawing of each sample project, from the sample engine's
// script through the batch program and GDAL to the viewer, its prints and
// exports; the level list; the headless export drawing the same picture.
#include "gui/DrawingViewer.h"
#include "gui/SceneView.h"
#include "platform/GdalDrawingReader.h"
#include "platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QListWidget>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

namespace tw {

namespace {

struct Script {
    size_t elements = 0;
    QStringList texts;
};

// What the batch program is asked to draw: every line but a remark or a symbology is one element.
Script readScript(const QString& path) {
    Script s;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return s;
    static const QStringList kinds = {"LINE", "SHAPE", "CIRCLE", "ARC", "TEXT"};
    while (!f.atEnd()) {
        const QString line = QString::fromUtf8(f.readLine()).trimmed();
        const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (words.isEmpty() || !kinds.contains(words[0])) continue;
        ++s.elements;
        if (words[0] == QLatin1String("TEXT")) s.texts << words.mid(5).join(QLatin1Char(' '));
    }
    return s;
}

int pdfPages(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return -1;
    return static_cast<int>(QString::fromLatin1(f.readAll()).count(QRegularExpression("/Type\\s*/Page[^s]")));
}

QString readText(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

} // namespace

class DrawingViewerTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir_;

    // Runs the sample engine and the batch program on a sample project; the drawing's path.
    QString runSample(const QString& sample, Script* script = nullptr) {
        const QString base = dir_.filePath(QFileInfo(sample).completeBaseName());
        QFile::copy(sample, base + ".ebnt");
        std::array<std::string, 10> names;
        const char* suffixes[] = {".ebnt",  "e.sif",  ".ebntc", ".ebntr", ".egen",
                                  ".ebent", ".eelev", ".ebeam", ".epile", ".equan"};
        for (size_t i = 0; i < names.size(); ++i)
            names[i] = (base + suffixes[i]).toStdString();
        if (callEngineHere(TW_PROGRAM_DIR, names) != 0) return {};
        if (script) *script = readScript(base + "e.sif");
        if (QProcess::execute(TW_PROGRAM_DIR "/tarnwick-dgnbatch", {base + "e.sif"}) != 0) return {};
        return base + "e.dgn";
    }

    std::unique_ptr<DrawingViewer> open(const QString& drawing) {
        LoadedDrawing loaded;
        std::string error;
        if (!loadDrawing(TW_PROGRAM_DIR, drawing.toStdString(), loaded, error)) {
            qWarning("%s", error.c_str());
            return nullptr;
        }
        return std::make_unique<DrawingViewer>(std::move(loaded.scene), drawing, loaded.elements);
    }

  private slots:
    void eachSampleRunIsDrawnWithEveryElementTheBatchProgramWrote() {
        const QStringList samples = QDir(TW_SOURCE_DIR "/samples").entryList({"*.ebnt"});
        QVERIFY(!samples.isEmpty());
        for (const QString& name : samples) {
            Script script;
            const QString drawing = runSample(TW_SOURCE_DIR "/samples/" + name, &script);
            QVERIFY2(!drawing.isEmpty(), qPrintable(name));
            QVERIFY2(script.elements > 20 && !script.texts.isEmpty(), qPrintable(name));
            LoadedDrawing loaded;
            std::string error;
            QVERIFY2(loadDrawing(TW_PROGRAM_DIR, drawing.toStdString(), loaded, error), error.c_str());
            QCOMPARE(loaded.elements, script.elements);
            QCOMPARE(loaded.scene.shapes.size() + loaded.scene.polylines.size(), script.elements);
            QVERIFY2(loaded.scene.levels().size() >= 4, qPrintable(name));

            DrawingViewer viewer(std::move(loaded.scene), drawing, loaded.elements);
            QString why;
            QVERIFY2(viewer.exportTo(dir_.filePath("drawing.pdf"), &why), qPrintable(why));
            QCOMPARE(pdfPages(dir_.filePath("drawing.pdf")), 1);
            QVERIFY2(viewer.exportTo(dir_.filePath("drawing.svg"), &why), qPrintable(why));
            const QString svg = readText(dir_.filePath("drawing.svg"));
            for (const QString& text : script.texts)
                QVERIFY2(svg.contains(text.toHtmlEscaped()), qPrintable(name + ": " + text));
        }
    }

    void theLevelListShowsAndHidesLevelsOnScreenInPrintAndExport() {
        Script script;
        auto viewer = open(runSample(TW_SOURCE_DIR "/samples/intermediate.ebnt", &script));
        QVERIFY(viewer);
        QListWidget* list = viewer->levelList();
        QCOMPARE(static_cast<size_t>(list->count()), viewer->view()->scene().levels().size());
        // The level of the texts: hidden, they leave the export.
        int textLevel = -1;
        for (const auto& s : viewer->view()->scene().shapes)
            if (s.kind == drawing::Shape::Kind::Text && s.text == script.texts.first().toStdString())
                textLevel = s.level;
        QListWidgetItem* item = nullptr;
        for (int i = 0; i < list->count(); ++i)
            if (list->item(i)->data(Qt::UserRole).toInt() == textLevel) item = list->item(i);
        QVERIFY(item);
        item->setCheckState(Qt::Unchecked);
        QCOMPARE(viewer->view()->options().hiddenLevels, std::set<int>{textLevel});
        QString why;
        QVERIFY(viewer->exportTo(dir_.filePath("hidden.svg"), &why));
        QVERIFY(!readText(dir_.filePath("hidden.svg")).contains(script.texts.first().toHtmlEscaped()));

        viewer->showAllLevels(false);
        QCOMPARE(viewer->view()->options().hiddenLevels.size(), static_cast<size_t>(list->count()));
        viewer->showAllLevels(true);
        QVERIFY(viewer->view()->options().hiddenLevels.empty());

        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(dir_.filePath("printed.pdf"));
        QVERIFY(viewer->printTo(printer));
        QCOMPARE(pdfPages(dir_.filePath("printed.pdf")), 1);
    }

    void theWindowOpensFittedOnTheScreen() {
        auto viewer = open(runSample(TW_SOURCE_DIR "/samples/twelve-beams.ebnt"));
        QVERIFY(viewer);
        viewer->placeOnScreen();
        viewer->show();
        QVERIFY(QTest::qWaitForWindowExposed(viewer.get()));
        QVERIFY(viewer->view()->fitted());
        const QRect screen = viewer->screen()->availableGeometry();
        QVERIFY2(screen.contains(viewer->frameGeometry()), "the window leaves the screen");
        QVERIFY(viewer->windowTitle().startsWith("twelve-beamse.dgn"));
    }

    void theHeadlessExportDrawsTheSamePicture() {
        const QString drawing = runSample(TW_SOURCE_DIR "/samples/end-with-backwall.ebnt");
        auto viewer = open(drawing);
        QVERIFY(viewer);
        QString why;
        QVERIFY(viewer->exportTo(dir_.filePath("window.png"), &why));
        QProcess cli;
        cli.start(TW_PROGRAM_DIR "/tarnwick", {"view", drawing, "--export", dir_.filePath("headless.png")});
        QVERIFY(cli.waitForFinished(60000));
        QCOMPARE(cli.exitCode(), 0);
        const QImage window(dir_.filePath("window.png")), headless(dir_.filePath("headless.png"));
        QVERIFY(!window.isNull());
        QCOMPARE(headless, window);

        // A drawing that cannot be read: one sentence, a failed exit, no picture.
        cli.start(TW_PROGRAM_DIR "/tarnwick",
                  {"view", dir_.filePath("end-with-backwall.ebnt"), "--export", dir_.filePath("none.png")});
        QVERIFY(cli.waitForFinished(60000));
        QCOMPARE(cli.exitCode(), 1);
        QVERIFY(cli.readAllStandardError().contains("not a MicroStation drawing"));
        QVERIFY(!QFile::exists(dir_.filePath("none.png")));
    }
};

} // namespace tw

QTEST_MAIN(tw::DrawingViewerTest)
#include "DrawingViewerTest.moc"
