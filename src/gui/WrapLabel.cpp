// SPDX-License-Identifier: Apache-2.0
#include "gui/WrapLabel.h"
#include "gui/FocusMarker.h"

#include <QPainter>

#include <QEvent>

namespace tw {

WrapLabel::WrapLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {}

WrapLabel::Key WrapLabel::key() const {
    return {text(),      textFormat(), font(),       contentsMargins(), margin(),     indent(),
            alignment(), wordWrap(),   sizePolicy(), minimumSize(),     maximumSize()};
}

void WrapLabel::check() const {
    Key now = key();
    if (key_ && *key_ == now) return;
    key_ = std::move(now);
    hint_.reset();
    minimumHint_.reset();
    heights_.clear();
}

QSize WrapLabel::sizeHint() const {
    check();
    if (!hint_) hint_ = fixedWidthHint();
    if (!hint_) hint_ = QLabel::sizeHint();
    return *hint_;
}

QSize WrapLabel::minimumSizeHint() const {
    check();
    if (!minimumHint_) minimumHint_ = fixedWidthHint();
    if (!minimumHint_) minimumHint_ = QLabel::minimumSizeHint();
    return *minimumHint_;
}

std::optional<QSize> WrapLabel::fixedWidthHint() const {
    // A wrapped text in a fixed width has one size: its lines at that width.
    // QLabel would try it at several widths first, each a layout of the text.
    if (!wordWrap() || minimumWidth() != maximumWidth() || minimumWidth() <= 0) return std::nullopt;
    return QSize(minimumWidth(), heightForWidth(minimumWidth()));
}

int WrapLabel::heightForWidth(int width) const {
    check();
    auto it = heights_.find(width);
    if (it == heights_.end()) it = heights_.emplace(width, QLabel::heightForWidth(width)).first;
    return it->second;
}

void WrapLabel::changeEvent(QEvent* event) {
    // The style or the screen can change what a text measures without changing the text.
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) key_.reset();
    QLabel::changeEvent(event);
}

void WrapLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QPainter p(this);
    drawFocusMarker(p, this, rect());
}

} // namespace tw
