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
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
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

CompareWindow::CompareWindow(const App& app, const QString& file, QWidget* parent, LengthUnits units)
    : QDialog(parent), app_(app), units_(units) {
    setObjectName(QStringLiteral("compareWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    setWindowTitle(QStringLiteral("Compare With"));
    auto* pathRow = new QHBoxLayout;
    auto* pathLabel = new QLabel(QStringLiteral("&Project file:"));
    path_ = new QLineEdit;
    path_->setObjectName(QStringLiteral("comparePath"));
    path_->setToolTip(QStringLiteral("The project file to compare the form with; type its path and press Return"));
    path_->setClearButtonEnabled(true);
    pathLabel->setBuddy(path_);
    auto* browse = new QPushButton(QStringLiteral("&Browse..."));
    auto* go = new QPushButton(QStringLiteral("C&ompare"));
    go->setObjectName(QStringLiteral("compareButton"));
    // Return anywhere in the window compares the file in the path box; nothing else takes it.
    browse->setAutoDefault(false);
    go->setDefault(true);
    connect(browse, &QPushButton::clicked, this, &CompareWindow::browse);
    connect(go, &QPushButton::clicked, this, [this] { compare(path_->text()); });
    pathRow->addWidget(pathLabel);
    pathRow->addWidget(path_, 1);
    pathRow->addWidget(browse);
    pathRow->addWidget(go);
    heading_ = new QLabel;
    heading_->setWordWrap(true);
    heading_->setTextFormat(Qt::PlainText);
    list_ = new QPlainTextEdit;
    list_->setReadOnly(true);
    // A bent's row runs long: wrapped at the window's width, never cut.
    list_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    list_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    list_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    compare(file);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    for (auto* b : buttons->buttons())
        if (auto* push = qobject_cast<QPushButton*>(b)) push->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* v = new QVBoxLayout(this);
    v->addLayout(pathRow);
    v->addWidget(heading_);
    v->addWidget(list_, 1);
    v->addWidget(buttons);
    resize(900, 420);
    makeSmallWindow(this, QStringLiteral("compareWith"), parent);
}

void CompareWindow::compare(const QString& typed) {
    QString file = typed.trimmed();
    if (file == QLatin1String("~") || file.startsWith(QLatin1String("~/"))) file.replace(0, 1, QDir::homePath());
    if (file.isEmpty()) {
        file_.clear();
        setWindowTitle(QStringLiteral("Compare With"));
        heading_->setText(QStringLiteral("Type the path of a project file and press Return, or choose one with "
                                         "Browse: what differs between it and the project on the form is listed "
                                         "here."));
        list_->clear();
        path_->setFocus();
        return;
    }
    // A relative path is taken from the folder of the project on the form.
    const std::string& current = app_.project().currentFile;
    const QDir base = current.empty() ? QDir::current() : QFileInfo(q(current)).absoluteDir();
    file_ = QDir::cleanPath(base.absoluteFilePath(file));
    path_->setText(QDir::toNativeSeparators(file_));
    setWindowTitle(QStringLiteral("Compare With %1").arg(QFileInfo(file_).fileName()));

    ReadingPorts ports;
    App other(ports, ports, app_.programDir());
    other.loadMainForm();
    if (!other.readFile(file_.toStdString())) {
        heading_->setText(QStringLiteral("%1 could not be read:").arg(QDir::toNativeSeparators(file_)));
        list_->setPlainText(q(ports.lastMessage));
        return;
    }
    DiffOptions options;
    options.units = units_;
    const auto lines = projectDifferences(other.project(), app_.project(), options);
    const QString inUnits = units_ == LengthUnits::DecimalFeet ? QStringLiteral("lengths in decimal feet")
                                                               : QStringLiteral("lengths in feet and inches");
    heading_->setText(
        lines.empty()
            ? QStringLiteral("%1 and the project on the form are the same.").arg(QDir::toNativeSeparators(file_))
            : QStringLiteral("From %1 to the project on the form (%2):").arg(QDir::toNativeSeparators(file_), inUnits));
    QString text;
    for (const auto& line : lines)
        text += q(line) + QLatin1Char('\n');
    list_->setPlainText(text);
}

void CompareWindow::setUnits(LengthUnits units) {
    if (units == units_) return;
    units_ = units;
    if (!file_.isEmpty()) compare(file_);
}

void CompareWindow::browse() {
    const QString start = !file_.isEmpty() ? QFileInfo(file_).absolutePath()
                          : app_.project().currentFile.empty()
                              ? QString()
                              : QFileInfo(q(app_.project().currentFile)).absolutePath();
    const QString chosen = QFileDialog::getOpenFileName(this, QStringLiteral("Compare With"), start,
                                                        QStringLiteral("Tarnwick projects (*.ebnt)"));
    if (!chosen.isEmpty()) compare(chosen);
}

} // namespace tw
