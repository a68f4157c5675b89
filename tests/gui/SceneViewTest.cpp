// SPDX-License-Identifier: Apache-2.0
// The drawing view: zoom about the pointer, pan, fit, and a live scene that
// follows the inputs until the user picks a view of their own.
#include "gui/SceneView.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

namespace tw {

using namespace drawing;

class SceneViewTest : public QObject {
    Q_OBJECT

    static Scene square(double size) {
        Scene s;
        s.polyline({{0, 0}, {size, 0}, {size, size}, {0, size}}, true);
        return s;
    }

    static void wheel(SceneView& v, QPointF at, int delta) {
        QWheelEvent e(at, v.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
        QApplication::sendEvent(&v, &e);
    }

  private slots:
    void theWheelZoomsAboutThePointerAndFitReturns() {
        SceneView v;
        v.resize(400, 300);
        v.setScene(square(10));
        const QPointF at(300, 100);
        const QPointF world = v.transform().inverted().map(at);
        wheel(v, at, 240);
        QVERIFY(!v.fitted());
        const QPointF after = v.transform().map(world);
        QVERIFY(std::abs(after.x() - at.x()) < 1e-6 && std::abs(after.y() - at.y()) < 1e-6);
        QVERIFY(v.transform().m11() > 1.5 * fitTransform(v.scene().bounds(), QRectF(v.rect())).m11());
        v.fit();
        QVERIFY(v.fitted());
        QCOMPARE(v.transform(), fitTransform(v.scene().bounds(), QRectF(v.rect())));
    }

    void aDragPansAndKeepsTheViewWhenTheSceneChanges() {
        SceneView v;
        v.resize(400, 300);
        v.setScene(square(10));
        const QPointF origin = v.transform().map(QPointF(0, 0));
        QTest::mousePress(&v, Qt::LeftButton, {}, QPoint(100, 100));
        QMouseEvent move(QEvent::MouseMove, QPointF(130, 110), v.mapToGlobal(QPointF(130, 110)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&v, &move);
        QTest::mouseRelease(&v, Qt::LeftButton, {}, QPoint(130, 110));
        QCOMPARE(v.transform().map(QPointF(0, 0)), origin + QPointF(30, 10));
        // A larger drawing while the user looks at a part: the part stays where it was.
        v.setScene(square(40));
        QCOMPARE(v.transform().map(QPointF(0, 0)), origin + QPointF(30, 10));
    }

    void whileFittedANewSceneIsFittedAgain() {
        SceneView v;
        v.resize(400, 300);
        v.setScene(square(10));
        v.setScene(square(40));
        QCOMPARE(v.transform(), fitTransform(square(40).bounds(), QRectF(v.rect())));
    }
};

} // namespace tw

QTEST_MAIN(tw::SceneViewTest)
#include "SceneViewTest.moc"
