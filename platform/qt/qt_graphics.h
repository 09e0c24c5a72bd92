#pragma once
// Conversions between the toolkit-free graphic values and Qt's: colours, fonts, pictures, text.
#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>
#include <string>
#include <string_view>

#include "platform/ui/graphics.h"

namespace TabulonLib12 {

// The colour as it shows: system colours resolved through ResolveColour.
QColor ToQColor(Colour colour);

// The Qt font of a font description, size in points. "MS Sans Serif" and the other names of
// a dialog font map to the generic sans serif family; other names go to fontconfig,
// which finds the metric-compatible face (Arial -> Liberation Sans).
QFont ToQFont(const Font& font);

// Picture pixels (0xAARRGGBB, row by row) as a QImage in Format_ARGB32, and back. An image whose
// pixel buffer does not match its size gives a null QImage; a null QImage gives an empty picture.
QImage ToQImage(const Image& image);
Picture FromQImage(const QImage& image);

inline QString ToQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// Twips to whole logical pixels, rounded to the nearest; out-of-range values are clamped so
// that absurd geometry never overflows the painter's integer coordinates.
int TwipsToPixels(double twips);

}  // namespace TabulonLib12
