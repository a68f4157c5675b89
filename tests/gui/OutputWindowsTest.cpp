// The output windows show file text as it is, never as markup.
#include "../unit/FakePorts.h"

#include "gui/FormWindows.h"

#include <QPlainTextEdit>
#include <QTest>

namespace tw {

class OutputWindowsTest : public QObject {
    Q_OBJECT
  private slots:
    void aListingWithMarkupShowsTheMarkup() {
        test::Loaded app;
        auto* preview = makePreviewWindow(*app, nullptr);
        app->form(kFrmViewTest).at(Ctl::rtOpen).text = "<b>CAP</b> &amp; <i>BENT</i>\r\nLINE 2\r\n";
        preview->refresh();
        auto* text = preview->findChild<QPlainTextEdit*>(QStringLiteral("rtOpen"));
        QVERIFY(text);
        QCOMPARE(text->toPlainText(), QStringLiteral("<b>CAP</b> &amp; <i>BENT</i>\nLINE 2\n"));
        QVERIFY(text->isReadOnly());
        delete preview;
    }
};

} // namespace tw

QTEST_MAIN(tw::OutputWindowsTest)
#include "OutputWindowsTest.moc"
