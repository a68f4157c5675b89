// SPDX-License-Identifier: Apache-2.0
#include "gui/RecoveryBar.h"
#include "platform/QtText.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStyle>

namespace tw {

RecoveryBar::RecoveryBar(App& app, RecoveryStore& store, RecoveryStore::Left left, QWidget* parent)
    : QFrame(parent), app_(app), store_(store), left_(std::move(left)) {
    setObjectName(QStringLiteral("recoveryBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, p.color(QPalette::ToolTipBase));
    p.setColor(QPalette::WindowText, p.color(QPalette::ToolTipText));
    setPalette(p);

    auto* h = new QHBoxLayout(this);
    auto* icon = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(size, size));
    QString project = left_.currentFile.empty() ? tr("A new project") : QFileInfo(q(left_.currentFile)).fileName();
    if (!left_.title.empty()) project += QStringLiteral(" (\u201C%1\u201D)").arg(q(left_.title));
    auto* text = new QLabel(tr("%1 had changes that were not saved when Tarnwick last ended. They were kept on %2.")
                                .arg(project, QLocale().toString(left_.written, QLocale::ShortFormat)));
    text->setObjectName(QStringLiteral("recoveryText"));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    if (!left_.currentFile.empty()) text->setToolTip(q(left_.currentFile));
    restore_ = new QPushButton(tr("Restore"));
    restore_->setObjectName(QStringLiteral("recoveryRestore"));
    discard_ = new QPushButton(tr("Discard"));
    discard_->setObjectName(QStringLiteral("recoveryDiscard"));
    h->addWidget(icon);
    h->addWidget(text, 1);
    h->addWidget(restore_);
    h->addWidget(discard_);
    connect(restore_, &QPushButton::clicked, this, [this] { restore(); });
    connect(discard_, &QPushButton::clicked, this, [this] { discard(); });
}

void RecoveryBar::restore() {
    // A file that cannot be read is told in the error box, and stays on offer to be discarded.
    if (!app_.actions.restore(RecoveryStore::read(left_))) return;
    store_.discard(left_);
    hide();
    deleteLater();
}

void RecoveryBar::discard() {
    store_.discard(left_);
    hide();
    deleteLater();
}

} // namespace tw
