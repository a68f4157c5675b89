// SPDX-License-Identifier: Apache-2.0
// The drawing pane follows the form, and the sketch window draws the sketches.
#include "ShownWindow.h"

#include "gui/BentTable.h"

#include "core/inputfile/InputFile.h"
#include "gui/DrawingPane.h"
#include "gui/FormWindows.h"
#include "gui/LaidOutView.h"
#include "gui/MainWindow.h"

#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

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
        QVERIFY(!shows(view()->scene(), "45.0000"));
        auto* length = window->findChild<QLineEdit*>(QStringLiteral("txtCapLength"));
        length->setFocus(Qt::MouseFocusReason);
        QTest::keyClicks(length, QStringLiteral("45"));
        QCOMPARE(view()->options().highlight, std::string("txtCapLength"));
        QVERIFY(shows(view()->scene(), "45"));
        window->findChild<QLineEdit*>(QStringLiteral("txtProjectInfo(0)"))->setFocus(Qt::TabFocusReason);
        QVERIFY(shows(view()->scene(), "45.0000"));
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
        QVERIFY(shows(view()->scene(), third));
        QVERIFY(!shows(view()->scene(), sixth));
        window->grid()->selectRow(5);
        QVERIFY(shows(view()->scene(), sixth));
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
