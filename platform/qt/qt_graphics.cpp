#include "platform/qt/qt_graphics.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace TabulonLib12 {

namespace {

std::string Lowered(const std::string& text) {
    std::string out = text;
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return out;
}

// Names of a dialog font that saved forms carry and that has no face on this system.
bool IsDialogFontName(const std::string& lowered) {
    return lowered.empty() || lowered == "ms sans serif" || lowered == "ms shell dlg" ||
           lowered == "ms shell dlg 2" || lowered == "system";
}

}  // namespace

QColor ToQColor(Colour colour) {
    const Colour c = ResolveColour(colour);
    return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF), static_cast<int>((c >> 16) & 0xFF));
}

QFont ToQFont(const Font& font) {
    QFont q;
    const std::string lowered = Lowered(font.name);
    if (IsDialogFontName(lowered)) {
        q.setFamily(QStringLiteral("Sans Serif"));
        q.setStyleHint(QFont::SansSerif);
    } else {
        q.setFamily(ToQString(font.name));
        if (lowered.find("courier") != std::string::npos) q.setStyleHint(QFont::Monospace);
        else if (lowered.find("times") != std::string::npos || lowered == "ms serif") q.setStyleHint(QFont::Serif);
        else q.setStyleHint(QFont::SansSerif);
    }
    // A size that is not a sensible number of points falls back to the default size.
    const double size = std::isfinite(font.size) && font.size > 0 ? std::clamp<double>(font.size, 1.0, 1638.0) : 8.25;
    q.setPointSizeF(size);
    q.setBold(font.bold);
    q.setItalic(font.italic);
    q.setUnderline(font.underline);
    return q;
}

QImage ToQImage(const Image& image) {
    if (image.width <= 0 || image.height <= 0) return {};
    const size_t count = static_cast<size_t>(image.width) * static_cast<size_t>(image.height);
    if (image.argb.size() != count) return {};
    QImage out(image.width, image.height, QImage::Format_ARGB32);
    if (out.isNull()) return {};
    for (int y = 0; y < image.height; ++y) {
        std::memcpy(out.scanLine(y), image.argb.data() + static_cast<size_t>(y) * image.width,
                    static_cast<size_t>(image.width) * sizeof(uint32_t));
    }
    return out;
}

Picture FromQImage(const QImage& image) {
    if (image.isNull()) return std::make_shared<const Image>();
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    auto out = std::make_shared<Image>(argb.width(), argb.height());
    for (int y = 0; y < argb.height(); ++y) {
        std::memcpy(out->argb.data() + static_cast<size_t>(y) * argb.width(), argb.constScanLine(y),
                    static_cast<size_t>(argb.width()) * sizeof(uint32_t));
    }
    return out;
}

int TwipsToPixels(double twips) {
    if (!std::isfinite(twips)) return 0;
    constexpr double limit = 1.0e7;  // pixels; far beyond any screen, well inside int
    const double px = std::clamp(twips / TwipsPerPixel, -limit, limit);
    return static_cast<int>(std::lround(px));
}

}  // namespace TabulonLib12
