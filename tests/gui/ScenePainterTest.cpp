// SPDX-License-Identifier: Apache-2.0
// Drawings reach the screen and the three export formats the same way.
#include "render/ScenePainter.h"

#include "core/Errors.h"
#include "platform/SafeFile.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace tw {

using namespace drawing;

class ScenePainterTest : public QObject {
    Q_OBJECT

    static Scene sample() {
        Scene s;
        s.polyline({{0, 0}, {40, 0}, {40, 3}, {0, 3}}, true).source = "txtCapLength";
        s.dimension({0, 3}, {40, 3}, 2, "40.0000");
        s.text({20, -2}, "CAP ELEVATION", 9, HAlign::Center);
        s.arc({10, 1.5}, 0.5, 0.5, 0, 360);
        return s;
    }

    // How many pixels of an image are near a colour.
    static int pixelsOf(const QImage& image, QColor color) {
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                n += std::abs(c.red() - color.red()) + std::abs(c.green() - color.green()) +
                         std::abs(c.blue() - color.blue()) <
                     60;
            }
        return n;
    }

  private slots:
    // A view of a large drawing through its index: every line it shows is
    // drawn (the small ones as pixels), hidden levels are not, and what lies
    // outside the view costs nothing and shows nothing.
    void aLargeDrawingIsDrawnByItsIndexAsItIsWithout() {
        Scene scene;
        for (int i = 0; i < 5000; ++i) {
            const double x = i % 100, y = i / 100;
            scene.polylines.add(std::vector<Point>{{x, y}, {x + 0.5, y + 0.5}},
                                {{{0, 0, 255}}, std::nullopt, 1, false});
        }
        scene.polylines.add(std::vector<Point>{{0, 25}, {100, 25}}, {{{255, 0, 0}, 0.5}, std::nullopt, 2, false});
        const SceneIndex index(scene.polylines);
        auto paint = [&](const QTransform& t, const PaintOptions& o, const SceneIndex* by) {
            QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::white);
            QPainter p(&image);
            paintScene(p, scene, t, o, by);
            return image;
        };
        const QTransform fit = fitTransform(scene.bounds(), QRectF(0, 0, 400, 300));
        const QImage whole = paint(fit, {}, nullptr), byIndex = paint(fit, {}, &index);
        QVERIFY(pixelsOf(byIndex, Qt::blue) > pixelsOf(whole, Qt::blue) / 2);
        QVERIFY(pixelsOf(byIndex, Qt::red) > 300);
        PaintOptions hidden;
        hidden.hiddenLevels = {1};
        QCOMPARE(pixelsOf(paint(fit, hidden, &index), Qt::blue), 0);
        // Zoomed on the lower left corner, far from the red line.
        QTransform corner = fitTransform(Box{0, 0, 10, 8, false}, QRectF(0, 0, 400, 300), 0);
        const QImage part = paint(corner, {}, &index);
        QVERIFY(pixelsOf(part, Qt::blue) > 0);
        QCOMPARE(pixelsOf(part, Qt::red), 0);
        QCOMPARE(part, paint(corner, {}, nullptr)); // few lines: drawn in full either way
    }

    void theViewFitsTheDrawingWithYUp() {
        Box box;
        box.add(Point{0, 0});
        box.add(Point{10, 5});
        const QTransform t = fitTransform(box, QRectF(0, 0, 200, 100), 0);
        const QPointF topLeft = t.map(QPointF(0, 5));
        const QPointF bottomRight = t.map(QPointF(10, 0));
        QVERIFY(topLeft.y() < bottomRight.y());
        QCOMPARE(bottomRight.x() - topLeft.x(), 200.0);
        QCOMPARE(bottomRight.y() - topLeft.y(), 100.0);
    }

    void eachFormatIsWrittenByItsSuffix() {
        QTemporaryDir dir;
        QString error;
        const Scene scene = sample();

        QVERIFY2(exportScene(scene, dir.filePath("a.svg"), &error, replaceFile, "Bent"), qPrintable(error));
        QFile svg(dir.filePath("a.svg"));
        QVERIFY(svg.open(QIODevice::ReadOnly));
        const QString svgText = QString::fromUtf8(svg.readAll());
        QVERIFY(svgText.contains("40.0000"));
        QVERIFY(svgText.contains("CAP ELEVATION"));

        QVERIFY2(exportScene(scene, dir.filePath("a.pdf"), &error, replaceFile), qPrintable(error));
        QFile pdf(dir.filePath("a.pdf"));
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        const QString pdfText = QString::fromLatin1(pdf.readAll());
        QCOMPARE(pdfText.count(QRegularExpression("/Type\\s*/Page[^s]")), 1);

        QVERIFY2(exportScene(scene, dir.filePath("a.PNG"), &error, replaceFile), qPrintable(error));
        QImage png(dir.filePath("a.PNG"));
        QVERIFY(!png.isNull());
        bool inked = false;
        for (int y = 0; y < png.height() && !inked; y += 4)
            for (int x = 0; x < png.width() && !inked; x += 4)
                inked = qGray(png.pixel(x, y)) < 128;
        QVERIFY(inked);
    }

    void anUnknownSuffixOrAnUnwritablePathIsRefusedInWords() {
        QTemporaryDir dir;
        QString error;
        QVERIFY(!exportScene(sample(), dir.filePath("a.dwg"), &error, replaceFile));
        QVERIFY(error.contains(".svg"));
        QVERIFY(!QFile::exists(dir.filePath("a.dwg")));
        QVERIFY(!exportScene(sample(), dir.filePath("missing/folder/a.png"), &error, replaceFile));
        QVERIFY(error.contains(dir.filePath("missing/folder")));
    }

    // Every format is drawn whole before anything is written, and a write
    // that fails (a full disk) is told of in one line, the file left alone.
    void aWriteThatFailsIsToldOfInOneLine() {
        QTemporaryDir dir;
        for (const char* name : {"a.svg", "a.pdf", "a.png"}) {
            std::string given;
            const FileWriter full = [&](const std::string&, const std::string& bytes) {
                given = bytes;
                return WriteResult{err::kDiskFull, "Disk full: the disk is full"};
            };
            QString error;
            QVERIFY(!exportScene(sample(), dir.filePath(name), &error, full));
            QVERIFY2(given.size() > 100, name);
            QCOMPARE(error, QStringLiteral("Disk full: the disk is full."));
            QVERIFY(!QFile::exists(dir.filePath(name)));
        }
    }

    // A dimension's label stands beyond its line, away from what it measures, on either side.
    void aDimensionLabelStandsAwayFromWhatItMeasures() {
        for (double offset : {-2.0, 2.0}) {
            Scene s;
            s.line({0, 0}, {0, 10});
            s.dimension({0, 0}, {0, 10}, offset, "LABEL").height = 14;
            s.line({-8, 0}, {8, 0}); // room on both sides
            QImage img(400, 400, QImage::Format_ARGB32);
            img.fill(Qt::white);
            QPainter p(&img);
            const QTransform t = fitTransform(s.bounds(), QRectF(img.rect()));
            paintScene(p, s, t);
            p.end();
            const int object = qRound(t.map(QPointF(0, 5)).x()), line = qRound(t.map(QPointF(-offset, 5)).x());
            const int y0 = qRound(t.map(QPointF(0, 6.5)).y()), y1 = qRound(t.map(QPointF(0, 3.5)).y());
            auto inked = [&](int from, int to) {
                for (int x = std::min(from, to); x <= std::max(from, to); ++x)
                    for (int y = y0; y <= y1; ++y)
                        if (qGray(img.pixel(x, y)) < 128) return true;
                return false;
            };
            const int beyond = line + (line > object ? 30 : -30);
            QVERIFY2(inked(line + (line > object ? 3 : -3), beyond), "no label beyond the line");
            QVERIFY2(!inked(object + (line > object ? 3 : -3), line + (line > object ? -3 : 3)),
                     "the label sits between the line and what it measures");
        }
    }

    void hiddenLevelsAreNotPainted() {
        Scene s;
        s.polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true).fill = Color{0, 0, 0};
        s.shapes.back().level = 3;
        QImage img(100, 100, QImage::Format_ARGB32);
        img.fill(Qt::white);
        QPainter p(&img);
        PaintOptions o;
        o.hiddenLevels = {3};
        paintScene(p, s, fitTransform(s.bounds(), QRectF(img.rect())), o);
        p.end();
        QCOMPARE(img.pixelColor(50, 50), QColor(Qt::white));
    }
};

} // namespace tw

QTEST_MAIN(tw::ScenePainterTest)
#include "ScenePainterTest.moc"
