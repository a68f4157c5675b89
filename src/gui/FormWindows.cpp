// SPDX-License-Identifier: Apache-2.0
#include "gui/FormWindows.h"
#include "platform/QtText.h"

#include "core/drawing/Sketches.h"
#include "gui/LaidOutView.h"
#include "render/SketchImage.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QTextDocument>
#include <QVBoxLayout>

namespace tw {

FormWindow::FormWindow(App& app, FormId form, QWidget* parent)
    : QDialog(parent), app_(app), form_(form), binder_(app, form, this) {
    setObjectName(q(std::string(formName(form))));
    setModal(false);
}

void FormWindow::refresh() {
    setWindowTitle(q(app_.form(form_).caption));
    binder_.sync();
}

void FormWindow::refresh(const ChangeSet& changes) {
    setWindowTitle(q(app_.form(form_).caption));
    binder_.sync(changes);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    // Closing the window is the window's own way out: the form unloads.
    if (app_.form(form_).loaded) app_.actions.closeWindow(form_);
    event->accept();
}

FormWindow* makeSplashOrAbout(App& app, FormId form, QWidget* parent) {
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
    if (app.form(form).has(Ctl::lblLicense)) {
        auto* licence = b.label(Ctl::lblLicense);
        licence->setWordWrap(true);
        v->addWidget(licence);
    }
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
    auto* w = new FormWindow(app, FormId::Printer, parent);
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
    auto* w = new FormWindow(app, FormId::Preview, parent);
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

PictureWindow::PictureWindow(App& app, QWidget* parent) : FormWindow(app, FormId::Picture, parent) {
    auto* v = new QVBoxLayout(this);
    stack_ = new QStackedWidget;
    stack_->setObjectName(QStringLiteral("picViewImage"));
    image_ = new QLabel;
    image_->setAlignment(Qt::AlignCenter);
    image_->setMinimumSize(600, 400);
    sketch_ = new LaidOutView;
    const double pixelsPerPoint = sketch_->logicalDpiY() / 72.0;
    sketch_->setNaturalSize(QSize(static_cast<int>(drawing::kSketchWidthPt * pixelsPerPoint),
                                  static_cast<int>(drawing::kSketchHeightPt * pixelsPerPoint)));
    sketch_->setMinimumSize(300, 200);
    for (QWidget* w : {static_cast<QWidget*>(image_), static_cast<QWidget*>(sketch_)}) {
        w->installEventFilter(this);
        stack_->addWidget(w);
    }
    v->addWidget(stack_, 1);
    v->addWidget(binder_.label(Ctl::Label1));
}

void PictureWindow::showPicture(const QString& file) {
    if (!QFileInfo::exists(file)) {
        // No picture shipped: the program draws the sketch the picture's name stands for.
        if (auto sketch = drawing::sketchNamed(QFileInfo(file).completeBaseName().toStdString())) {
            sketch_->setLayout(
                [s = *sketch](double w, double h) { return drawing::drawBentToFit(s.inputs, s.options, w, h); });
            sketch_->fit();
            stack_->setCurrentWidget(sketch_);
            return;
        }
    }
    stack_->setCurrentWidget(image_);
    QPixmap p(file);
    if (p.isNull())
        image_->setText(QStringLiteral("The sketch %1 could not be loaded.").arg(file));
    else
        image_->setPixmap(p);
}

LaidOutView* PictureWindow::drawnSketch() const { return stack_->currentWidget() == sketch_ ? sketch_ : nullptr; }

QString drawnFullSizeSketch(const QString& path) {
    const QFileInfo info(path);
    if (info.exists() || info.suffix() != QLatin1String("tif") || info.dir().dirName() != QLatin1String("Drawing"))
        return path;
    const QString name = info.completeBaseName();
    if (!drawing::sketchNamed(name.toStdString())) return path;
    const QDir cache(QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/Drawing"));
    const QString drawn = cache.filePath(info.fileName());
    if (QFileInfo::exists(drawn)) return drawn;
    // Three times the window's size: a picture to look at closely.
    if (!QDir().mkpath(cache.path()) || !writeSketchImage(name.toStdString(), drawn, 3, nullptr)) return path;
    return drawn;
}

bool PictureWindow::eventFilter(QObject* watched, QEvent* event) {
    if ((watched == image_ || watched == sketch_) && event->type() == QEvent::MouseButtonDblClick) {
        app_.actions.doubleClick(Target(FormId::Picture, Ctl::picViewImage));
        return true;
    }
    return FormWindow::eventFilter(watched, event);
}

} // namespace tw
