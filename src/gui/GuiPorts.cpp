// SPDX-License-Identifier: Apache-2.0
#include "gui/GuiPorts.h"
#include "gui/WindowPlacement.h"
#include "platform/QtText.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace tw {

namespace {

// "Description (*.ext)|*.ext" as Qt writes it: "Description (*.ext)".
QString qtFilter(const std::string& legacy) {
    const QString f = q(legacy);
    const int bar = f.indexOf(QLatin1Char('|'));
    return bar < 0 ? f : f.left(bar);
}

} // namespace

GuiPorts::GuiPorts() = default;
GuiPorts::~GuiPorts() = default;

MsgAnswer GuiPorts::message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) {
    QMessageBox box(icon == MsgIcon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon, q(title), q(text),
                    QMessageBox::NoButton, parent_);
    box.setTextFormat(Qt::PlainText);
    switch (buttons) {
    case MsgButtons::OK: box.setStandardButtons(QMessageBox::Ok); break;
    case MsgButtons::OKCancel: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
    case MsgButtons::YesNo: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    }
    // The busy pointer must not hide a question.
    const bool busy = busy_;
    if (busy) QApplication::restoreOverrideCursor();
    const int pressed = box.exec();
    if (busy) QApplication::setOverrideCursor(Qt::WaitCursor);
    switch (pressed) {
    case QMessageBox::Cancel: return MsgAnswer::Cancel;
    case QMessageBox::Yes: return MsgAnswer::Yes;
    case QMessageBox::No: return MsgAnswer::No;
    default: return buttons == MsgButtons::YesNo ? MsgAnswer::No : MsgAnswer::OK;
    }
}

std::optional<std::string> GuiPorts::fileDialog(const FileDialogRequest& r) {
    QFileDialog dialog(parent_, q(r.title));
    dialog.setNameFilter(qtFilter(r.filter));
    dialog.setDefaultSuffix(q(r.defaultExt));
    if (r.kind == FileDialogKind::Open) {
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        dialog.setFileMode(QFileDialog::ExistingFile);
    } else {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        if (!r.overwritePrompt) dialog.setOption(QFileDialog::DontConfirmOverwrite);
    }
    if (!r.fileName.empty()) dialog.selectFile(q(r.fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return QDir::toNativeSeparators(dialog.selectedFiles().first()).toStdString();
}

bool GuiPorts::choosePrinter(QPrinter& printer) {
    QPrintDialog dialog(&printer, parent_);
    return dialog.exec() == QDialog::Accepted;
}

bool GuiPorts::printerDialog() {
    if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    job_.reset();
    if (!choosePrinter(*printer_)) return false;
    job_ = std::make_unique<ListingPrinter>(*printer_);
    return true;
}

void GuiPorts::print(const PrintDocument& doc) {
    if (!job_) {
        if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        job_ = std::make_unique<ListingPrinter>(*printer_);
    }
    if (!job_->print(doc))
        message("The printer could not start the document " + doc.file + ".", "Error", MsgButtons::OK,
                MsgIcon::Critical);
}

void GuiPorts::showDocument(const std::string& file) {
    auto* view = document_ ? document_->findChild<QTextBrowser*>() : nullptr;
    if (!document_) {
        auto* w = new QDialog(parent_);
        w->setObjectName(QStringLiteral("document"));
        w->setAttribute(Qt::WA_DeleteOnClose);
        auto* v = new QVBoxLayout(w);
        view = new QTextBrowser;
        view->setOpenExternalLinks(false);
        v->addWidget(view);
        auto* close = new QPushButton(QStringLiteral("Close"));
        QObject::connect(close, &QPushButton::clicked, w, &QDialog::close);
        auto* h = new QHBoxLayout;
        h->addStretch(1);
        h->addWidget(close);
        v->addLayout(h);
        w->resize(fittedSize(w, QSize(900, 700)));
        keepOnScreen(w);
        document_ = w;
    }
    view->setSource(QUrl::fromLocalFile(q(file)));
    document_->setWindowTitle(view->documentTitle().isEmpty() ? QFileInfo(q(file)).fileName() : view->documentTitle());
    if (!document_->isVisible()) centre(document_, parent_);
    document_->show();
    document_->raise();
    document_->activateWindow();
}

void GuiPorts::endPrintJob() {
    if (job_) job_->finish();
    job_.reset();
}

bool GuiSystem::shellOpen(const std::string& file, const std::string& parameters, const std::string& folder) {
    QString path = q(file);
    if (QFileInfo(path).isRelative()) path = QDir(q(folder)).filePath(path);
    if (!QFileInfo::exists(path) && onMissingFile) path = onMissingFile(path);
    return Platform::shellOpen(path.toStdString(), parameters, folder);
}

void GuiPorts::setBusyCursor(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void GuiPorts::windowShow(const std::string& form, const std::string& caption) {
    if (onShow) onShow(form, caption);
}

void GuiPorts::windowClose(const std::string& form) {
    if (onClose) onClose(form);
}

void GuiPorts::pictureLoaded(const std::string& control, const std::string& file) {
    if (onPicture) onPicture(control, file);
}

void GuiPorts::processEvents() { QCoreApplication::processEvents(); }

void GuiPorts::waitBegins(const std::string& what, std::function<void()> cancel) {
    if (onWaitBegins) onWaitBegins(what, std::move(cancel));
}

void GuiPorts::waitEnds() {
    if (onWaitEnds) onWaitEnds();
}

void GuiPorts::notice(const std::string& text) {
    if (onNotice) onNotice(text);
}

void GuiPorts::offerDrawingViewer(const std::string& drawing) {
    if (onOfferViewer) onOfferViewer(drawing);
}

void GuiPorts::note(const std::string& text, const std::string& field) {
    notice(text);
    if (onBalloon && !field.empty()) onBalloon(text, field);
}

void GuiPorts::toldPutAside(const std::string& text, const std::string& copy) {
    if (onPutAside) onPutAside(text, copy);
}

int GuiPorts::screenWidthTwips() const {
    const QScreen* s = QGuiApplication::primaryScreen();
    return s ? s->availableGeometry().width() * kTwipsPerPixel : UserPorts::screenWidthTwips();
}

int GuiPorts::screenHeightTwips() const {
    const QScreen* s = QGuiApplication::primaryScreen();
    return s ? s->availableGeometry().height() * kTwipsPerPixel : UserPorts::screenHeightTwips();
}

} // namespace tw
