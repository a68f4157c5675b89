// SPDX-License-Identifier: Apache-2.0
#include "gui/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace tw {

NoticeBar::NoticeBar(const QString& name, const QString& text, QWidget* parent) : QFrame(parent), name_(name) {
    setObjectName(name + QStringLiteral("Bar"));
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
    text_ = new QLabel(text);
    text_->setObjectName(name + QStringLiteral("Text"));
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    h->addWidget(icon);
    h->addWidget(text_, 1);
}

QPushButton* NoticeBar::addButton(const QString& caption, const QString& objectSuffix) {
    auto* b = new QPushButton(caption);
    b->setObjectName(name_ + objectSuffix);
    layout()->addWidget(b);
    return b;
}

void NoticeBar::dismiss() {
    hide();
    deleteLater();
}

} // namespace tw
