// SPDX-License-Identifier: Apache-2.0
#include "gui/StylePictures.h"

#include <QApplication>
#include <QFileInfo>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QPointer>
#include <QStyleOption>
#include <QWidget>

#include <optional>

namespace tw {

namespace {

class LazyIconEngine : public QIconEngine {
  public:
    LazyIconEngine(const QStyle* base, QStyle::StandardPixmap which, const QStyleOption* option, const QWidget* widget)
        : base_(base), which_(which), widget_(widget) {
        if (option) direction_ = option->direction;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return icon().pixmap(size, mode, state);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
        return icon().pixmap(size, scale, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return icon().actualSize(size, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return icon().availableSizes(mode, state);
    }
    QIconEngine* clone() const override { return new LazyIconEngine(*this); }
    QString key() const override { return QStringLiteral("tarnwick-lazy-style-icon"); }

  private:
    const QIcon& icon() {
        if (!icon_) {
            QStyleOption option;
            if (direction_) option.direction = *direction_;
            // The style it was made by, or the program's style if that one has been replaced.
            const QStyle* style = base_ ? base_.data() : QApplication::style();
            icon_ = style->standardIcon(which_, direction_ ? &option : nullptr, widget_.data());
        }
        return *icon_;
    }
    QPointer<const QStyle> base_;
    QStyle::StandardPixmap which_;
    QPointer<const QWidget> widget_; // the widget it is for, while it lives
    std::optional<Qt::LayoutDirection> direction_;
    std::optional<QIcon> icon_;
};

// The key under which QPixmap(file) looks in the pixmap cache before it
// reads the file: the path, its time and size (each value's bytes from the
// lowest, each byte's low digit first), and the pixmap's kind.
template <class T> QString hexBytes(T value) {
    static const char digits[] = "0123456789abcdef";
    QString s;
    for (unsigned i = 0; i < sizeof(T); ++i) {
        const auto byte = static_cast<unsigned char>(value >> (8 * i));
        s += QLatin1Char(digits[byte & 0xf]);
        s += QLatin1Char(digits[byte >> 4]);
    }
    return s;
}

QString pixmapKey(const QString& file) {
    const QFileInfo info(file);
    return QStringLiteral("qt_pixmap") + info.absoluteFilePath() +
           hexBytes(static_cast<unsigned>(info.lastModified().toSecsSinceEpoch())) +
           hexBytes(static_cast<quint64>(info.size())) + hexBytes(0u);
}

} // namespace

QIcon LazyStyleIcons::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    // An option lives only for the call. Of what one holds, the overflow
    // arrows of menu bars and toolbars hang on the direction alone; any other
    // icon asked for with an option is read now.
    const bool arrow = icon == SP_ToolBarHorizontalExtensionButton || icon == SP_ToolBarVerticalExtensionButton;
    if (option && !arrow) return QProxyStyle::standardIcon(icon, option, widget);
    return QIcon(new LazyIconEngine(baseStyle(), icon, option, widget));
}

QPixmap readPixmap(const QString& file, const char* format) {
    QImageReader reader(file, format);
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImage(reader.read());
}

void prepareStylePictures() {
    // The frame of every group box on the first page.
    const QString groupBox = QStringLiteral(":/qt-project.org/styles/commonstyle/images/fusion_groupbox.png");
    if (QFileInfo::exists(groupBox)) QPixmapCache::insert(pixmapKey(groupBox), readPixmap(groupBox, "png"));
}

} // namespace tw
