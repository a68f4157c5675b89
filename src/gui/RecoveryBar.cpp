// SPDX-License-Identifier: Apache-2.0
#include "gui/RecoveryBar.h"
#include "gui/MainWindow.h"
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
    // A file that cannot be read is told in the error box, and set aside: it is offered no more.
    if (!app_.actions.restore(RecoveryStore::read(left_)))
        store_.setAside(left_);
    else
        store_.discard(left_);
    dismiss();
}

void RecoveryBar::discard() {
    store_.discard(left_);
    dismiss();
}

} // namespace tw

namespace tw {

std::vector<RecoveryBar*> offerLeftWork(App& app, RecoveryStore& store, MainWindow& window) {
    std::vector<RecoveryBar*> bars;
    for (auto& left : store.claimLeft()) {
        if (left.problem.empty()) {
            bars.push_back(new RecoveryBar(app, store, std::move(left)));
            window.addNotice(bars.back());
            continue;
        }
        auto* bar = new NoticeBar(QStringLiteral("recoveryUnreadable"),
                                  QObject::tr("Work kept from an earlier session cannot be restored: %1. It is offered "
                                              "no more; its file is kept as %2.")
                                      .arg(q(left.problem), left.path));
        QObject::connect(bar->addButton(QObject::tr("OK"), QStringLiteral("OK")), &QPushButton::clicked, bar,
                         &NoticeBar::dismiss);
        window.addNotice(bar);
    }
    return bars;
}

} // namespace tw
