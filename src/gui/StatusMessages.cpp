// SPDX-License-Identifier: Apache-2.0
#include "gui/StatusMessages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace tw {

// One line of words, cut with "..." where the bar ends.
class ElidedLabel : public QWidget {
  public:
    explicit ElidedLabel(QWidget* parent = nullptr) : QWidget(parent) {
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    void setText(const QString& text) {
        if (text == text_) return;
        text_ = text;
        setToolTip(text);
        setAccessibleName(text);
        updateGeometry();
        update();
    }
    const QString& text() const { return text_; }
    QSize sizeHint() const override { return {fontMetrics().horizontalAdvance(text_), fontMetrics().height()}; }
    QSize minimumSizeHint() const override { return {0, fontMetrics().height()}; }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, fontMetrics().elidedText(text_, Qt::ElideRight, width()));
    }

  private:
    QString text_;
};

StatusMessages::StatusMessages(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("statusMessages"));
    auto* h = new QHBoxLayout(this);
    h->setContentsMargins(0, 0, 0, 0);
    label_ = new ElidedLabel;
    label_->setObjectName(QStringLiteral("statusMessage"));
    viewer_ = new QPushButton(tr("Open the drawing in Tarnwick's viewer"));
    viewer_->setObjectName(QStringLiteral("openInViewer"));
    connect(viewer_, &QPushButton::clicked, this, [this] {
        if (openViewer && !offered_.empty()) openViewer(offered_);
    });
    bring_ = new QPushButton(tr("Bring up to date"));
    bring_->setObjectName(QStringLiteral("bringUpToDate"));
    bring_->setToolTip(tr("Work out the closing values again now, as a change of tab does"));
    connect(bring_, &QPushButton::clicked, this, [this] {
        if (bringUpToDate) bringUpToDate();
    });
    for (QPushButton* b : {viewer_, bring_})
        b->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    h->addWidget(label_, 1);
    h->addWidget(viewer_);
    h->addWidget(bring_);
    passing_.setSingleShot(true);
    connect(&passing_, &QTimer::timeout, this, [this] {
        said_ = {};
        refresh();
    });
    refresh();
}

void StatusMessages::notice(const QString& text) {
    offered_.clear();
    notice_ = {text, text.isEmpty() ? 0 : next_++};
    refresh();
}

void StatusMessages::offerViewer(const std::string& drawing) {
    offered_ = drawing;
    viewer_->setToolTip(QString::fromStdString(drawing));
    refresh();
}

void StatusMessages::say(const QString& text, int milliseconds) {
    said_ = {text, next_++};
    passing_.start(milliseconds);
    refresh();
}

void StatusMessages::setStanding(const QString& text, bool stale) {
    if (text == standing_ && stale == stale_) return;
    standing_ = text;
    stale_ = stale;
    refresh();
}

QString StatusMessages::shownText() const { return label_->text(); }

void StatusMessages::refresh() {
    // The newest word of the two, else what stands.
    const bool saying = !said_.text.isEmpty() && said_.order > notice_.order;
    const bool noticing = !saying && !notice_.text.isEmpty();
    label_->setText(saying ? said_.text : noticing ? notice_.text : standing_);
    viewer_->setVisible(noticing && !offered_.empty());
    bring_->setVisible(!saying && !noticing && stale_);
}

} // namespace tw
