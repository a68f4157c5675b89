// SPDX-License-Identifier: Apache-2.0
// The drawing pane follows the form, and the sketch window draws the sketches.
#include "ShownWindow.h"

#include "PaneChecks.h"

#include "gui/BentTable.h"

#include "core/inputfile/InputFile.h"
#include "core/output/UnitsSetting.h"
#include "gui/DrawingPane.h"
#include "gui/FormWindows.h"
#include "gui/LaidOutView.h"
#include "gui/MainWindow.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace tw {

namespace {

bool shows(const drawing::Scene& scene, const std::string& text) {
    return std::any_of(scene.shapes.begin(), scene.shapes.end(), [&](const drawing::Shape& s) {
        return (s.kind == drawing::Shape::Kind::Text || s.kind == drawing::Shape::Kind::Dimension) && s.text == text;
    });
}

} // namespace

class DrawingPaneTest : public QObject, public test::ShownWindow {
    Q_OBJECT

    LaidOutView* view() const { return window->drawingPane()->view(); }

  private slots:
    void init() {
        openWindow();
        // The window comes up first; the bent is drawn right after its first frame.
        QTRY_VERIFY(!view()->scene().shapes.empty());
    }
    void cleanup() { closeWindow(); }

    void typingAFieldRedrawsTheBentAndHighlightsIt() {
        window->tabs()->setCurrentIndex(0);
        QVERIFY(!shows(view()->scene(), "45'-6\""));
        auto* length = window->findChild<QLineEdit*>(QStringLiteral("txtCapLength"));
        length->setFocus(Qt::MouseFocusReason);
        QTest::keyClicks(length, QStringLiteral("45.5"));
        QCOMPARE(view()->options().highlight, std::string("txtCapLength"));
        QVERIFY(shows(view()->scene(), "45'-6\""));
        window->findChild<QLineEdit*>(QStringLiteral("txtProjectInfo(0)"))->setFocus(Qt::TabFocusReason);
        QCOMPARE(length->text(), QStringLiteral("45.5000"));
        QVERIFY(shows(view()->scene(), "45'-6\""));
        // View > Units: decimal feet, kept for the next window.
        window->findChild<QAction*>(QStringLiteral("unitsDecimalFeet"))->trigger();
        QVERIFY(shows(view()->scene(), "45.50'"));
        QCOMPARE(lengthUnits((*app)->system()), LengthUnits::DecimalFeet);
        window->findChild<QAction*>(QStringLiteral("unitsFeetInches"))->trigger();
        QVERIFY(shows(view()->scene(), "45'-6\""));
        QCOMPARE(view()->options().highlight, std::string("txtProjectInfo(0)"));
        // With the pane the window still fits the smallest screen it is made for.
        QVERIFY(window->minimumSizeHint().width() <= 1366);
        QVERIFY(window->minimumSizeHint().height() <= 768);
        QCOMPARE(window->width(), 1366);
    }

    void selectingABentDrawsItsElevation() {
        app->ports.files = {TW_SOURCE_DIR "/samples/twelve-beams.ebnt"};
        (*app)->actions.click(Ctl::mnuOpen);
        window->findChild<QComboBox*>(QStringLiteral("drawingViews"))->setCurrentIndex(1); // plan and elevation
        window->refresh();
        window->tabs()->setCurrentIndex(5);
        const BentTable& g = (*app)->project().table();
        const std::string third = g.cell(3, 3), sixth = g.cell(6, 3);
        QVERIFY(third != sixth);
        window->grid()->selectRow(2);
        QVERIFY(shows(view()->scene(), elevationText(third)));
        QVERIFY(!shows(view()->scene(), elevationText(sixth)));
        window->grid()->selectRow(5);
        QVERIFY(shows(view()->scene(), elevationText(sixth)));
    }

    void everySampleFillsThePaneAndNothingTouchesALabel() {
        for (const char* sample : {"intermediate", "end-with-backwall", "end-without-backwall", "twelve-beams"}) {
            app->ports.files = {TW_SOURCE_DIR "/samples/" + std::string(sample) + ".ebnt"};
            (*app)->actions.click(Ctl::mnuOpen);
            for (const bool elevation : {false, true}) {
                // The engineer in a field of the plan or of the elevation: the pane shows that view.
                (*app)->actions.focus(elevation ? CtlId(Ctl::txtEStepPI, 0) : CtlId(Ctl::txtCapLength));
                window->refresh();
                const QString fault = test::paneFaults(*view());
                QVERIFY2(fault.isEmpty(),
                         qPrintable(QStringLiteral("%1, %2: ").arg(sample, elevation ? "elevation" : "plan") + fault));
                QVERIFY(!window->drawingPane()->fitNote()->isVisibleTo(window.get()));
            }
        }
    }

    void aPaneTooSmallForBothViewsSaysSo() {
        app->ports.files = {TW_SOURCE_DIR "/samples/twelve-beams.ebnt"};
        (*app)->actions.click(Ctl::mnuOpen);
        window->findChild<QComboBox*>(QStringLiteral("drawingViews"))->setCurrentIndex(1); // plan and elevation
        window->refresh();
        const drawing::Scene& scene = view()->scene();
        QApplication::processEvents();
        QVERIFY(window->drawingPane()->fitNote()->isVisibleTo(window.get()));
        // The text keeps its size; the drawing takes the pane's width and runs on below it.
        QVERIFY(scene.bounds().height() * std::abs(view()->transform().m22()) > view()->height());
        QVERIFY(test::clashesIn(scene, scene.feetPerPoint).empty());
        window->findChild<QComboBox*>(QStringLiteral("drawingViews"))->setCurrentIndex(2); // plan
        view()->scene();
        QApplication::processEvents();
        QVERIFY(!window->drawingPane()->fitNote()->isVisibleTo(window.get()));
    }

    void aMissingPictureIsDrawnAndScaledToItsWindow() {
        PictureWindow picture(**app, nullptr);
        picture.showPicture(QStringLiteral(TW_PROGRAM_DIR "/no-such-folder/Drawing/cbwbw.jpg"));
        LaidOutView* sketch = picture.drawnSketch();
        QVERIFY(sketch);
        picture.resize(700, 450);
        picture.show();
        QVERIFY(QTest::qWaitForWindowExposed(&picture));
        QVERIFY(shows(sketch->scene(), "Centerline Locations 1"));
        const double before = sketch->transform().m11();
        picture.resize(1300, 740);
        QApplication::processEvents();
        QVERIFY(sketch->transform().m11() > 1.3 * before);
        // A picture that exists is shown as it is.
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("cbwbw.jpg"));
        QImage(20, 10, QImage::Format_RGB32).save(file);
        picture.showPicture(file);
        QVERIFY(!picture.drawnSketch());
    }

    void theFullSizePictureIsDrawnOnceIntoTheCache() {
        QTemporaryDir cache;
        qputenv("XDG_CACHE_HOME", cache.path().toLocal8Bit());
        const QString missing = QStringLiteral(TW_PROGRAM_DIR "/no-such-folder/Drawing/cwbw.tif");
        const QString drawn = drawnFullSizeSketch(missing);
        QVERIFY(drawn != missing);
        QVERIFY(drawn.startsWith(cache.path()));
        const QImage image(drawn);
        QCOMPARE(image.width(), 2880); // three times the sketch's 720 points at 96 dots an inch
        const QDateTime made = QFileInfo(drawn).lastModified();
        QCOMPARE(drawnFullSizeSketch(missing), drawn);
        QCOMPARE(QFileInfo(drawn).lastModified(), made);
        // Anything else is opened as it is.
        for (const QString& other : {QStringLiteral("/tmp/Drawing/xyz.tif"), QStringLiteral("/tmp/Drawing/cwbw.jpg"),
                                     QStringLiteral("/tmp/Other/cwbw.tif")})
            QCOMPARE(drawnFullSizeSketch(other), other);
    }
};

} // namespace tw

QTEST_MAIN(tw::DrawingPaneTest)
#include "DrawingPaneTest.moc"
