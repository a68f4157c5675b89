// SPDX-License-Identifier: Apache-2.0
// A label that measures its text once for each width it is asked about.
// QLabel lays a wrapped text out afresh on every size question, and a
// form's layouts ask each prompt many times while the window comes up.
#pragma once

#include <QLabel>

#include <map>
#include <optional>

namespace tw {

class WrapLabel : public QLabel {
  public:
    explicit WrapLabel(const QString& text = {}, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

  protected:
    void changeEvent(QEvent* event) override;
    // A label that takes the focus (a link) shows it.
    void paintEvent(QPaintEvent* event) override;

  private:
    // What the measures hang on; when any of it changes they are taken again.
    struct Key {
        QString text;
        Qt::TextFormat format = Qt::AutoText;
        QFont font;
        QMargins margins;
        int margin = 0;
        int indent = 0;
        Qt::Alignment alignment;
        bool wrap = false;
        QSizePolicy policy;
        QSize minimum, maximum;
        friend bool operator==(const Key&, const Key&) = default;
    };
    Key key() const;
    std::optional<QSize> fixedWidthHint() const;
    void check() const;

    mutable std::optional<Key> key_;
    mutable std::optional<QSize> hint_, minimumHint_;
    mutable std::map<int, int> heights_;
};

} // namespace tw
