// SPDX-License-Identifier: Apache-2.0
#include "gui/RecoveryBar.h"
#include "platform/QtText.h"

#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace tw {

namespace {
QString saidOf(const RecoveryStore::Left& left) {
    QString project =
        left.currentFile.empty() ? QObject::tr("A new project") : QFileInfo(q(left.currentFile)).fileName();
    if (!left.title.empty()) project += QStringLiteral(" (\u201C%1\u201D)").arg(q(left.title));
    return QObject::tr("%1 had changes that were not saved when Tarnwick last ended. They were kept on %2.")
        .arg(project, QLocale().toString(left.written, QLocale::ShortFormat));
}
} // namespace

RecoveryBar::RecoveryBar(App& app, RecoveryStore& store, RecoveryStore::Left left, QWidget* parent)
    : NoticeBar(QStringLiteral("recovery"), saidOf(left), parent), app_(app), store_(store), left_(std::move(left)) {
    if (!left_.currentFile.empty()) text()->setToolTip(q(left_.currentFile));
    restore_ = addButton(tr("Restore"), QStringLiteral("Restore"));
    discard_ = addButton(tr("Discard"), QStringLiteral("Discard"));
    connect(restore_, &QPushButton::clicked, this, [this] { restore(); });
    connect(discard_, &QPushButton::clicked, this, [this] { discard(); });
}

void RecoveryBar::restore() {
    // A file that cannot be read is told in the error box, and stays on offer to be discarded.
    if (!app_.actions.restore(RecoveryStore::read(left_))) return;
    store_.discard(left_);
    dismiss();
}

void RecoveryBar::discard() {
    store_.discard(left_);
    dismiss();
}

} // namespace tw
