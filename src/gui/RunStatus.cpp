// SPDX-License-Identifier: Apache-2.0
#include "gui/RunStatus.h"
#include "platform/QtText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>

namespace tw {

RunStatus::RunStatus(QStatusBar* bar) : QWidget(bar) {
    setObjectName(QStringLiteral("runStatus"));
    auto* h = new QHBoxLayout(this);
    h->setContentsMargins(0, 0, 0, 0);
    waiting_ = new QLabel;
    waiting_->setObjectName(QStringLiteral("runWaiting"));
    waiting_->setTextFormat(Qt::PlainText);
    cancel_ = new QPushButton(tr("Cancel"));
    cancel_->setObjectName(QStringLiteral("runCancel"));
    // The busy pointer is over the whole window; this button takes the click all the same.
    cancel_->setCursor(Qt::ArrowCursor);
    connect(cancel_, &QPushButton::clicked, this, [this] {
        if (waits_.empty()) return;
        const auto cancel = waits_.back().second;
        if (cancel) cancel();
    });
    cancel_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    h->addWidget(waiting_);
    h->addWidget(cancel_);
    bar->addPermanentWidget(this);
    refresh();
}

void RunStatus::begin(const std::string& what, std::function<void()> cancel) {
    waits_.emplace_back(q(what), std::move(cancel));
    refresh();
}

void RunStatus::end() {
    if (!waits_.empty()) waits_.pop_back();
    refresh();
}

QString RunStatus::waitText() const { return waits_.empty() ? QString() : waits_.back().first; }

void RunStatus::refresh() {
    const bool waiting = !waits_.empty();
    waiting_->setText(waiting ? waits_.back().first : QString());
    setVisible(waiting);
}

} // namespace tw
