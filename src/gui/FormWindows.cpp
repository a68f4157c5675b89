#include "gui/FormWindows.h"
#include "platform/QtText.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextDocument>
#include <QVBoxLayout>

namespace tw {

FormWindow::FormWindow(App& app, const std::string& form, QWidget* parent)
    : QDialog(parent), app_(app), form_(form), binder_(app, form, this) {
    setObjectName(q(form));
    setModal(false);
}

void FormWindow::refresh() {
    setWindowTitle(q(app_.form(form_).caption));
    binder_.sync();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    // Closing the window is the window's own way out: the form unloads.
    if (app_.form(form_).loaded) app_.actions.closeWindow(form_);
    event->accept();
}

FormWindow* makeSplashOrAbout(App& app, const std::string& form, QWidget* parent) {
    auto* w = new FormWindow(app, form, parent);
    Binder& b = w->binder();
    auto* v = new QVBoxLayout(w);
    auto* title = b.label(Ctl::lblTitle);
    QFont big = title->font();
    big.setPointSize(big.pointSize() + 8);
    big.setBold(true);
    title->setFont(big);
    v->addWidget(title);
    v->addWidget(b.label(Ctl::lblVersion));
    if (app.form(form).has(Ctl::lblLabel)) {
        auto* head = b.label(Ctl::lblLabel);
        QFont bold = head->font();
        bold.setBold(true);
        head->setFont(bold);
        v->addWidget(head);
    }
    auto* text = b.label(Ctl::lblDisclaimer);
    text->setWordWrap(true);
    v->addWidget(text);
    auto* ok = b.button(Ctl::cmdOK);
    ok->setDefault(true);
    auto* h = new QHBoxLayout;
    h->addStretch(1);
    h->addWidget(ok);
    v->addLayout(h);
    w->setMinimumWidth(460);
    return w;
}

FormWindow* makePrinterWindow(App& app, QWidget* parent) {
    auto* w = new FormWindow(app, kFrmIPrinter, parent);
    Binder& b = w->binder();
    auto* g = new QGridLayout(w);
    g->addWidget(b.label(Ctl::lblPageNum), 0, 0);
    g->addWidget(b.comboBox(Ctl::cmbFileTypes), 0, 1);
    g->addWidget(b.label(Ctl::Label2), 1, 0);
    auto* current = b.lineEdit(Ctl::txtCurrentFile);
    current->setReadOnly(true);
    current->setMinimumWidth(380);
    g->addWidget(current, 1, 1);
    auto* h = new QHBoxLayout;
    h->addStretch(1);
    h->addWidget(b.button(Ctl::printPreview));
    h->addWidget(b.button(Ctl::PrintIt));
    h->addWidget(b.button(Ctl::printCancel));
    g->addLayout(h, 2, 0, 1, 2);
    return w;
}

FormWindow* makePreviewWindow(App& app, QWidget* parent) {
    auto* w = new FormWindow(app, kFrmViewTest, parent);
    Binder& b = w->binder();
    auto* v = new QVBoxLayout(w);
    auto* text = b.textView(Ctl::rtOpen);
    QFont mono(QStringLiteral("Courier New"));
    mono.setStyleHint(QFont::Monospace);
    if (!QFontInfo(mono).fixedPitch()) mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    text->setFont(mono);
    v->addWidget(text);
    auto* h = new QHBoxLayout;
    h->addStretch(1);
    h->addWidget(b.button(Ctl::cmdQuit));
    v->addLayout(h);
    // A listing line is up to a hundred columns: room for them and forty lines, where the screen has it.
    const QFontMetrics fm(mono);
    const int frame = 2 * text->frameWidth() + text->verticalScrollBar()->sizeHint().width() +
                      2 * static_cast<int>(text->document()->documentMargin());
    const QSize textSize(fm.horizontalAdvance(QString(kPreviewColumns, QLatin1Char('M'))) + frame,
                         fm.lineSpacing() * kPreviewLines + frame);
    const QMargins m = v->contentsMargins();
    w->resize(textSize.width() + m.left() + m.right(),
              textSize.height() + m.top() + m.bottom() + v->spacing() + h->sizeHint().height());
    return w;
}

PictureWindow::PictureWindow(App& app, QWidget* parent) : FormWindow(app, kFrmPicView, parent) {
    auto* v = new QVBoxLayout(this);
    image_ = new QLabel;
    image_->setObjectName(QStringLiteral("picViewImage"));
    image_->setAlignment(Qt::AlignCenter);
    image_->setMinimumSize(600, 400);
    image_->installEventFilter(this);
    v->addWidget(image_, 1);
    v->addWidget(binder_.label(Ctl::Label1));
}

void PictureWindow::showPicture(const QString& file) {
    QPixmap p(file);
    if (p.isNull())
        image_->setText(QStringLiteral("The sketch %1 could not be loaded.").arg(file));
    else
        image_->setPixmap(p);
}

bool PictureWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == image_ && event->type() == QEvent::MouseButtonDblClick) {
        app_.actions.doubleClick(Target(kFrmPicView, Ctl::picViewImage));
        return true;
    }
    return FormWindow::eventFilter(watched, event);
}

} // namespace tw
