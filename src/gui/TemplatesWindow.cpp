// SPDX-License-Identifier: Apache-2.0
#include "gui/TemplatesWindow.h"

#include "core/app/App.h"
#include "gui/SmallWindows.h"
#include "platform/QtText.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tw {

namespace {

enum Column { NameColumn, TypeColumn, WhereColumn };

} // namespace

TemplatesWindow::TemplatesWindow(App& app, QWidget* parent)
    : QWidget(parent, Qt::Window), app_(app), store_(app.programDir()) {
    setObjectName(QStringLiteral("newFromTemplate"));
    setWindowTitle(tr("New from Template"));
    auto* v = new QVBoxLayout(this);
    list_ = addNoteAndList(v,
                           tr("A new project with the template's inputs and an empty bent table. Your own "
                              "templates (File > Save as Template) come first, then those shipped with Tarnwick."),
                           QStringLiteral("templateList"), {tr("Template"), tr("Bent type"), tr("Where it lies")},
                           tr("Double-click or Enter: a new project from the template"), tr("Templates"));
    connect(list_, &QTreeWidget::itemActivated, this, [this] { chooseSelected(); });
    auto* buttons = new QDialogButtonBox;
    choose_ = buttons->addButton(tr("&New Project"), QDialogButtonBox::AcceptRole);
    choose_->setObjectName(QStringLiteral("templateChoose"));
    choose_->setDefault(true);
    buttons->addButton(QDialogButtonBox::Close);
    connect(choose_, &QPushButton::clicked, this, &TemplatesWindow::chooseSelected);
    connect(buttons, &QDialogButtonBox::rejected, this, &QWidget::close);
    connect(list_, &QTreeWidget::currentItemChanged, this,
            [this] { choose_->setEnabled(list_->currentItem() != nullptr); });
    v->addWidget(buttons);
    resize(720, 300);
    makeSmallWindow(this, QStringLiteral("newFromTemplate"), parent);
}

void TemplatesWindow::refresh() {
    entries_ = store_.list();
    list_->clear();
    for (const auto& e : entries_) {
        auto* item = new QTreeWidgetItem(list_);
        item->setText(NameColumn, q(e.name));
        item->setText(TypeColumn, e.problem.empty() ? q(e.bentType) : tr("Does not read"));
        if (!e.problem.empty()) item->setToolTip(TypeColumn, q(e.problem));
        const QString where = QDir::toNativeSeparators(q(e.path));
        item->setText(WhereColumn, e.shipped ? tr("shipped: %1").arg(where) : where);
        item->setToolTip(WhereColumn, where);
    }
    if (list_->topLevelItemCount() > 0) list_->setCurrentItem(list_->topLevelItem(0));
    for (int i = 0; i < WhereColumn; ++i)
        list_->resizeColumnToContents(i);
    choose_->setEnabled(list_->currentItem() != nullptr);
}

void TemplatesWindow::chooseSelected() {
    const int row = list_->currentItem() ? list_->indexOfTopLevelItem(list_->currentItem()) : -1;
    if (row < 0 || row >= static_cast<int>(entries_.size())) return;
    const TemplateEntry& e = entries_[static_cast<size_t>(row)];
    // A template that does not read stays in the list after its box, for another to be chosen.
    const bool reads = e.problem.empty();
    app_.actions.apply(cmd::NewFromTemplate{e.name, e.path});
    if (reads) close();
}

} // namespace tw
