// SPDX-License-Identifier: Apache-2.0
#include "gui/PutAsideWork.h"

#include "core/app/App.h"
#include "gui/SmallWindows.h"
#include "platform/QtText.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tw {

namespace {

enum Column { ProjectColumn, Kept, Bents, Path };

QString projectOf(const PutAsideStore::Copy& c) {
    return c.currentFile.empty() ? QObject::tr("Untitled") : q(c.currentFile).section(QLatin1Char('/'), -1);
}

} // namespace

bool restorePutAside(App& app, const QString& copy, QWidget* parent) {
    PutAsideStore::Copy c;
    c.path = copy;
    const std::string bytes = PutAsideStore::read(c);
    if (bytes.empty()) {
        QMessageBox::warning(parent, QObject::tr("Put-Aside Work"),
                             QObject::tr("The copy %1 cannot be read: it is gone or no longer a file.").arg(copy));
        return false;
    }
    return app.actions.restore(bytes);
}

PutAsideBar::PutAsideBar(App& app, const QString& text, const QString& copy, QWidget* parent)
    : NoticeBar(QStringLiteral("putAside"), text, parent) {
    if (!copy.isEmpty()) {
        this->text()->setToolTip(copy);
        restore_ = addButton(tr("Restore"), QStringLiteral("Restore"));
        restore_->setToolTip(tr("Open the copy as an unsaved project"));
        connect(restore_, &QPushButton::clicked, this, [this, &app, copy] {
            if (restorePutAside(app, copy, window())) dismiss();
        });
    }
    auto* dismissButton = addButton(tr("Dismiss"), QStringLiteral("Dismiss"));
    dismissButton->setToolTip(tr("The copy stays in File > Put-Aside Work"));
    connect(dismissButton, &QPushButton::clicked, this, &NoticeBar::dismiss);
}

PutAsideWindow::PutAsideWindow(App& app, QWidget* parent) : QWidget(parent, Qt::Window), app_(app) {
    setObjectName(QStringLiteral("putAsideWork"));
    setWindowTitle(tr("Put-Aside Work"));
    auto* v = new QVBoxLayout(this);
    list_ =
        addNoteAndList(v,
                       tr("Unsaved changes that Open, New, Exit or a reload would have discarded, newest "
                          "first. Copies are kept for 30 days, the newest 50."),
                       QStringLiteral("putAsideList"), {tr("Project"), tr("Put aside"), tr("Bents"), tr("Full path")},
                       tr("Double-click or Enter: restore the copy"), tr("Put-aside copies"));
    connect(list_, &QTreeWidget::itemActivated, this, [this] { restoreSelected(); });
    auto* buttons = new QDialogButtonBox;
    restore_ = buttons->addButton(tr("&Restore"), QDialogButtonBox::ActionRole);
    restore_->setObjectName(QStringLiteral("putAsideRestore"));
    delete_ = buttons->addButton(tr("&Delete"), QDialogButtonBox::ActionRole);
    delete_->setObjectName(QStringLiteral("putAsideDelete"));
    connect(restore_, &QPushButton::clicked, this, &PutAsideWindow::restoreSelected);
    connect(delete_, &QPushButton::clicked, this, &PutAsideWindow::deleteSelected);
    buttons->addButton(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QWidget::close);
    connect(list_, &QTreeWidget::currentItemChanged, this, [this] {
        restore_->setEnabled(selected());
        delete_->setEnabled(selected());
    });
    v->addWidget(buttons);
    confirm = [this](const QString& question) {
        return QMessageBox::question(this, windowTitle(), question) == QMessageBox::Yes;
    };
    resize(720, 320);
    makeSmallWindow(this, QStringLiteral("putAsideWork"), parent);
}

void PutAsideWindow::refresh() {
    copies_ = store_.list();
    list_->clear();
    const QLocale locale;
    for (const auto& c : copies_) {
        auto* item = new QTreeWidgetItem(list_);
        item->setText(ProjectColumn, projectOf(c));
        item->setToolTip(ProjectColumn, q(c.title)); // its first title line
        item->setText(Kept, locale.toString(c.kept, QLocale::ShortFormat));
        item->setText(Bents, QString::number(c.bents));
        item->setTextAlignment(Bents, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(Path, c.currentFile.empty() ? tr("(not saved)") : q(c.currentFile));
        item->setToolTip(Path, c.path);
    }
    if (list_->topLevelItemCount() > 0) list_->setCurrentItem(list_->topLevelItem(0));
    for (int i = 0; i < Path; ++i)
        list_->resizeColumnToContents(i);
    restore_->setEnabled(selected());
    delete_->setEnabled(selected());
}

const PutAsideStore::Copy* PutAsideWindow::selected() const {
    const int row = list_->currentItem() ? list_->indexOfTopLevelItem(list_->currentItem()) : -1;
    return row >= 0 && row < static_cast<int>(copies_.size()) ? &copies_[static_cast<size_t>(row)] : nullptr;
}

void PutAsideWindow::restoreSelected() {
    if (const auto* c = selected(); c && restorePutAside(app_, c->path, this)) close();
}

void PutAsideWindow::deleteSelected() {
    const auto* c = selected();
    if (!c) return;
    const QString what = tr("Delete the copy of %1 put aside on %2? It cannot be brought back.")
                             .arg(projectOf(*c), QLocale().toString(c->kept, QLocale::ShortFormat));
    if (!confirm(what)) return;
    if (!store_.remove(*c)) QMessageBox::warning(this, windowTitle(), tr("%1 could not be deleted.").arg(c->path));
    refresh();
}

} // namespace tw
