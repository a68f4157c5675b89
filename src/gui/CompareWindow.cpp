// SPDX-License-Identifier: Apache-2.0
#include "gui/CompareWindow.h"

#include "core/QuietPorts.h"
#include "core/app/App.h"
#include "core/app/ProjectDiff.h"
#include "gui/SmallWindows.h"
#include "platform/FileRead.h"
#include "platform/QtText.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace tw {

namespace {

// The other project is read as `check` reads one: nobody asked, nothing written.
class ReadingPorts : public QuietPorts {
  public:
    ReadResult readFile(const std::string& path, std::uintmax_t maxBytes) override {
        return readRegularFile(path, maxBytes);
    }
};

} // namespace

CompareWindow::CompareWindow(const App& app, const QString& file, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("compareWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    const QString name = QFileInfo(file).fileName();
    setWindowTitle(QStringLiteral("Compare With %1").arg(name));
    heading_ = new QLabel;
    heading_->setWordWrap(true);
    list_ = new QPlainTextEdit;
    list_->setReadOnly(true);
    list_->setLineWrapMode(QPlainTextEdit::NoWrap);
    list_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    ReadingPorts ports;
    App other(ports, ports, app.programDir());
    other.loadMainForm();
    if (!other.readFile(file.toStdString())) {
        heading_->setText(QStringLiteral("%1 could not be read:").arg(QDir::toNativeSeparators(file)));
        list_->setPlainText(q(ports.lastMessage));
    } else {
        const auto lines = projectDifferences(other.project(), app.project());
        heading_->setText(
            lines.empty()
                ? QStringLiteral("%1 and the project on the form are the same.").arg(QDir::toNativeSeparators(file))
                : QStringLiteral("From %1 to the project on the form:").arg(QDir::toNativeSeparators(file)));
        QString text;
        for (const auto& line : lines)
            text += q(line) + QLatin1Char('\n');
        list_->setPlainText(text);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* v = new QVBoxLayout(this);
    v->addWidget(heading_);
    v->addWidget(list_, 1);
    v->addWidget(buttons);
    resize(900, 420);
    makeSmallWindow(this, QStringLiteral("compareWith"), parent);
}

} // namespace tw
