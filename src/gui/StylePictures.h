// SPDX-License-Identifier: Apache-2.0
// The pictures the window needs at start, read as what they are. Qt reads a
// picture file by guessing its format, and guessing loads every image plugin
// installed with their libraries (TIFF, WebP, JPEG and more): a seventh of
// the program's start-up, spent on a few small PNG files.
#pragma once

#include <QProxyStyle>

namespace tw {

// The style's own icons, read when one is first drawn: most, such as the
// menu bar's overflow arrow, are seldom drawn at all.
class LazyStyleIcons : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
};

// A picture file of a known format read as that format, nothing guessed.
QPixmap readPixmap(const QString& file, const char* format);

// Puts the style's pictures that the first frame draws where the style looks
// for them first, read as PNG.
void prepareStylePictures();

} // namespace tw
