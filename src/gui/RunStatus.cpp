// SPDX-License-Identifier: Apache-2.0
#include "gui/RunStatus.h"
#include "platform/QtText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QStyle>

namespace tw {

RunStatus::RunStatus(QStatusBar* bar) : QWidget(bar) {
    setObjectName(QStringLiteral("runStatus"));
    auto* h = new QHBoxLayout(this);
    h->setContentsMargins(0, 0, 0, 0);
    noticeIcon_ = new QLabel;
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
    noticeIcon_->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(icon, icon));
    notice_ = new QLabel;
    notice_->setObjectName(QStringLiteral("runNotice"));
    notice_->setTextFormat(Qt::PlainText);
    notice_->setTextInteractionFlags(Qt::TextSelectableByMouse);
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
    h->addWidget(noticeIcon_);
    h->addWidget(notice_);
    // At the right of the bar, as wide as it needs: the left stays for the bar's own messages.
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

void RunStatus::notice(const std::string& text) {
    notice_->setText(q(text));
    notice_->setToolTip(q(text));
    refresh();
}

QString RunStatus::waitText() const { return waits_.empty() ? QString() : waits_.back().first; }

QString RunStatus::noticeText() const { return notice_->text(); }

void RunStatus::refresh() {
    const bool waiting = !waits_.empty();
    waiting_->setText(waiting ? waits_.back().first : QString());
    waiting_->setVisible(waiting);
    cancel_->setVisible(waiting);
    const bool noticed = !notice_->text().isEmpty();
    noticeIcon_->setVisible(noticed);
    notice_->setVisible(noticed);
    setVisible(waiting || noticed);
}

} // namespace tw
