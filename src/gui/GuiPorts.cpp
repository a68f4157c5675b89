#include "gui/GuiPorts.h"
#include "platform/QtText.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>

namespace tw {

namespace {

// "Description (*.ext)|*.ext" as Qt writes it: "Description (*.ext)".
QString qtFilter(const std::string& legacy) {
    const QString f = q(legacy);
    const int bar = f.indexOf(QLatin1Char('|'));
    return bar < 0 ? f : f.left(bar);
}

QFont listingFont() {
    QFont f(QStringLiteral("Courier New"), 8);
    f.setStyleHint(QFont::Monospace);
    if (!QFontInfo(f).fixedPitch()) {
        f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        f.setPointSize(8);
    }
    return f;
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

bool GuiPorts::printerDialog() {
    if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer_.get(), parent_);
    documentsPrinted_ = 0;
    return dialog.exec() == QDialog::Accepted;
}

void GuiPorts::print(const PrintDocument& doc) {
    if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    // Printing to a file: each document gets a file of its own beside the chosen one.
    const QString chosen = printer_->outputFileName();
    if (!chosen.isEmpty() && documentsPrinted_ > 0) {
        const QFileInfo fi(chosen);
        printer_->setOutputFileName(fi.dir().filePath(fi.completeBaseName() + QStringLiteral("-") +
                                                      QString::number(documentsPrinted_ + 1) + QStringLiteral(".") +
                                                      fi.suffix()));
    }
    printer_->setDocName(q(doc.file));
    const bool ok = printListing(*printer_, doc);
    printer_->setOutputFileName(chosen);
    ++documentsPrinted_;
    if (!ok)
        message("The printer could not start the document " + doc.file + ".", "Error", MsgButtons::OK,
                MsgIcon::Critical);
}

bool printListing(QPrinter& printer, const PrintDocument& doc) {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    painter.setFont(listingFont());
    const QFontMetrics metrics(painter.font(), &printer);
    const int lineHeight = metrics.lineSpacing();
    const int pageHeight = painter.viewport().height();
    int y = metrics.ascent();
    for (const auto& line : doc.lines) {
        if (y + metrics.descent() > pageHeight) {
            printer.newPage();
            y = metrics.ascent();
        }
        painter.drawText(0, y, QString::fromStdString(line));
        y += lineHeight;
    }
    return painter.end();
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

int GuiPorts::screenWidthTwips() const {
    const QScreen* s = QGuiApplication::primaryScreen();
    return s ? s->availableGeometry().width() * kTwipsPerPixel : UserPorts::screenWidthTwips();
}

int GuiPorts::screenHeightTwips() const {
    const QScreen* s = QGuiApplication::primaryScreen();
    return s ? s->availableGeometry().height() * kTwipsPerPixel : UserPorts::screenHeightTwips();
}

} // namespace tw
