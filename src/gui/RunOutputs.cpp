// SPDX-License-Identifier: Apache-2.0
#include "gui/RunOutputs.h"

#include "core/EngineListing.h"
#include "core/app/App.h"
#include "core/output/Outputs.h"
#include "gui/ListingPrinter.h"
#include "gui/SmallWindows.h"
#include "platform/FileRead.h"
#include "platform/QtText.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLocale>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tw {

namespace {

enum Column { What, File, Size, Time };

// The listing's lines as the printer takes them (Windows-1252 text): only a
// regular file of a listing's size, so a pipe or a huge file is refused, not awaited.
ReadResult listingOf(const QString& file) { return readRegularFile(file.toStdString(), kMaxListingBytes); }

} // namespace

RunOutputsWindow::RunOutputsWindow(const App& app, std::function<void(const std::string&)> openDrawing, QWidget* parent)
    : QWidget(parent, Qt::Window), app_(app), openDrawing_(std::move(openDrawing)) {
    setObjectName(QStringLiteral("runOutputs"));
    setWindowTitle(QStringLiteral("Run Outputs"));
    auto* v = new QVBoxLayout(this);
    list_ = new QTreeWidget;
    list_->setObjectName(QStringLiteral("runOutputList"));
    list_->setRootIsDecorated(false);
    list_->setHeaderLabels(
        {QStringLiteral("Output"), QStringLiteral("File"), QStringLiteral("Size"), QStringLiteral("Written")});
    list_->setToolTip(QStringLiteral("Double-click or Enter: open the output"));
    connect(list_, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item) { open(list_->indexOfTopLevelItem(item)); });
    v->addWidget(list_);
    auto* buttons = new QDialogButtonBox;
    auto* openButton = buttons->addButton(QStringLiteral("&Open"), QDialogButtonBox::ActionRole);
    connect(openButton, &QPushButton::clicked, this, [this] {
        if (auto* item = list_->currentItem()) open(list_->indexOfTopLevelItem(item));
    });
    auto* refreshButton = buttons->addButton(QStringLiteral("&Refresh"), QDialogButtonBox::ActionRole);
    connect(refreshButton, &QPushButton::clicked, this, &RunOutputsWindow::refresh);
    buttons->addButton(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QWidget::close);
    v->addWidget(buttons);
    resize(640, 320);
    makeSmallWindow(this, QStringLiteral("runOutputs"), parent);
    refresh();
}

void RunOutputsWindow::refresh() {
    list_->clear();
    const QLocale locale;
    for (const auto& o : runOutputs(app_.session())) {
        const QFileInfo info(q(o.file));
        auto* item = new QTreeWidgetItem(list_);
        item->setText(What, q(o.what));
        item->setText(File, info.fileName());
        item->setToolTip(File, info.absoluteFilePath());
        item->setData(File, Qt::UserRole, q(o.file));
        item->setData(What, Qt::UserRole, o.drawing);
        if (info.exists()) {
            item->setText(Size, locale.formattedDataSize(info.size(), 1, QLocale::DataSizeTraditionalFormat));
            item->setText(Time, locale.toString(info.lastModified(), QLocale::ShortFormat));
        } else {
            item->setText(Size, QStringLiteral("not written"));
        }
        item->setTextAlignment(Size, Qt::AlignRight | Qt::AlignVCenter);
    }
    if (list_->topLevelItemCount() == 0) {
        auto* item = new QTreeWidgetItem(list_);
        item->setText(What, QStringLiteral("No Run yet, and no file to look beside"));
        item->setFlags(Qt::NoItemFlags);
    }
    for (int c = 0; c < list_->columnCount(); ++c)
        list_->resizeColumnToContents(c);
}

void RunOutputsWindow::open(int row) {
    QTreeWidgetItem* item = list_->topLevelItem(row);
    if (!item || !(item->flags() & Qt::ItemIsEnabled)) return;
    const QString file = item->data(File, Qt::UserRole).toString();
    if (item->data(What, Qt::UserRole).toBool()) {
        if (openDrawing_) openDrawing_(file.toStdString());
        return;
    }
    if (!QFileInfo(file).isFile()) {
        QMessageBox::information(this, windowTitle(), QStringLiteral("%1 has not been written.").arg(file));
        return;
    }
    auto* preview = new TextPreview(file, this);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    makeSmallWindow(preview, QStringLiteral("outputPreview"), window());
    preview->show();
}

TextPreview::TextPreview(const QString& file, QWidget* parent) : QWidget(parent, Qt::Window), file_(file) {
    setObjectName(QStringLiteral("outputPreview"));
    setWindowTitle(QFileInfo(file).fileName());
    auto* v = new QVBoxLayout(this);
    text_ = new QPlainTextEdit;
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    if (const ReadResult listing = listingOf(file); !listing.errorNumber) {
        QString shown;
        for (const auto& l : listingLines(listing.bytes))
            shown += QString::fromLatin1(l.data(), static_cast<qsizetype>(l.size())) + QLatin1Char('\n');
        text_->setPlainText(shown);
    } else {
        text_->setPlainText(QStringLiteral("%1 cannot be read: %2").arg(file, q(listing.error)));
    }
    v->addWidget(text_);
    auto* buttons = new QDialogButtonBox;
    auto* printButton = buttons->addButton(QStringLiteral("&Print..."), QDialogButtonBox::ActionRole);
    connect(printButton, &QPushButton::clicked, this, &TextPreview::print);
    buttons->addButton(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QWidget::close);
    v->addWidget(buttons);
    resize(760, 560);
}

void TextPreview::print() {
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const ReadResult listing = listingOf(file_);
    if (listing.errorNumber || !printListing(printer, {file_.toStdString(), listingLines(listing.bytes)}))
        QMessageBox::warning(this, windowTitle(), QStringLiteral("%1 could not be printed.").arg(file_));
}

} // namespace tw
