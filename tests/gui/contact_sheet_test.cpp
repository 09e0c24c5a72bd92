// The contact sheet of the drawn pictures: every band texture, arrow, the chooser button and the
// hand, at the plain size and at twice the size, magnified, in one PNG under the build folder
// (drawn_pictures_sheet.png) for a person to review. The test checks that the sheet holds the
// pictures' own pixels where it says it does.
#include <gtest/gtest.h>

#include <QDir>
#include <QFont>
#include <QPainter>
#include <string>

#include "platform/qt/qt_graphics.h"
#include "presentation/drawn_pictures.h"

namespace TabulonLib12 {
namespace {

constexpr int kPlainZoom = 4;   // the plain rendering, four screen pixels a pixel
constexpr int kFineZoom = 2;    // the finer one at the same shown size
constexpr int kGap = 12;
constexpr int kLabelWidth = 90;

const char* BandName(StileTestaType s) {
    switch (s) {
        case StileTestaType::Ice: return "Ice";
        case StileTestaType::Black: return "Black";
        case StileTestaType::Sea: return "Sea";
        case StileTestaType::Orange: return "Orange";
        case StileTestaType::Violet: return "Violet";
        case StileTestaType::Sky: return "Sky";
        case StileTestaType::Green: return "Green";
        case StileTestaType::White: return "White";
        case StileTestaType::Scheda: return "Scheda";
        case StileTestaType::Custom: return "Custom";
    }
    return "?";
}

const char* ArrowName(ColorArrowType c) {
    switch (c) {
        case ColorArrowType::White: return "White";
        case ColorArrowType::Black: return "Black";
        case ColorArrowType::Grey: return "Grey";
        case ColorArrowType::Blue: return "Blue";
        case ColorArrowType::Green: return "Green";
        case ColorArrowType::Custom: return "Custom";
    }
    return "?";
}

QImage Magnified(const Image& image, int zoom) {
    const QImage q = ToQImage(image);
    return q.scaled(q.width() * zoom, q.height() * zoom, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

// A grey checkerboard that shows where a picture is transparent.
void Checker(QPainter& p, const QRect& r) {
    p.fillRect(r, QColor(236, 236, 236));
    for (int y = r.top(); y < r.bottom(); y += 8)
        for (int x = r.left() + ((y - r.top()) / 8 % 2) * 8; x < r.right(); x += 16)
            p.fillRect(QRect(x, y, 8, 8).intersected(r), QColor(206, 206, 206));
}

struct Placed {
    Picture picture;
    QPoint plainAt;  // where the magnified plain rendering starts on the sheet
    QPoint fineAt;   // where the magnified finer rendering starts
};

class ContactSheet : public ::testing::Test {
protected:
    // Draws a picture's two renderings side by side at `at`, on `back` (a checkerboard when
    // invalid), and records where.
    void Pair(QPainter& p, const Picture& picture, QPoint at, const QColor& back = QColor()) {
        const QImage plain = Magnified(*picture, kPlainZoom);
        const QImage fine = Magnified(*picture->doubleScale, kFineZoom);
        const QRect a(at, plain.size());
        const QRect b(at + QPoint(plain.width() + 4, 0), fine.size());
        for (const QRect& r : {a, b}) back.isValid() ? p.fillRect(r, back) : Checker(p, r);
        p.drawImage(a.topLeft(), plain);
        p.drawImage(b.topLeft(), fine);
        placed.push_back({picture, a.topLeft(), b.topLeft()});
    }

    std::vector<Placed> placed;
};

TEST_F(ContactSheet, HoldsEveryPictureAtBothSizesAndIsWrittenAsPng) {
    const int bandShown = kBandTextureWidth * kPlainZoom;
    const int rowHeight = kBandTextureHeight * kPlainZoom + kGap;
    const int arrowsTop = kGap + static_cast<int>(BandTextureStyles().size()) * rowHeight + 24;
    const int arrowPair = 2 * kArrowWidth * kPlainZoom + 4;
    const int arrowRow = kArrowHeight * kPlainZoom + kGap;
    const int othersTop = arrowsTop + static_cast<int>(ArrowColours().size()) * arrowRow + 24;
    const int width = kLabelWidth + 2 * bandShown + 4 + kGap + 190 + kGap;
    const int height = othersTop + kHandPointerSize * kPlainZoom + 40;
    QImage sheet(width, height, QImage::Format_RGB32);
    sheet.fill(QColor(250, 250, 250));
    {
        QPainter p(&sheet);
        QFont font(QStringLiteral("Sans Serif"));
        font.setPixelSize(13);
        p.setFont(font);
        p.setPen(QColor(40, 40, 40));

        // The band textures: label, plain x4, fine x2, and a heading of 140 by 21 as the band
        // will show it, caption over the stretched texture.
        int y = kGap;
        for (StileTestaType style : BandTextureStyles()) {
            const Picture texture = BandTexture(style);
            ASSERT_TRUE(texture);
            p.setPen(QColor(40, 40, 40));
            p.drawText(QRect(8, y, kLabelWidth - 8, kBandTextureHeight * kPlainZoom), Qt::AlignVCenter,
                       QString::fromUtf8(BandName(style)));
            Pair(p, texture, QPoint(kLabelWidth, y));
            const QRect heading(kLabelWidth + 2 * bandShown + 4 + kGap, y + 30, 140, kBandTextureHeight);
            p.setRenderHint(QPainter::SmoothPixmapTransform);
            p.drawImage(heading, ToQImage(*texture));
            const bool dark = style == StileTestaType::Black || style == StileTestaType::Sea;
            QFont caption(QStringLiteral("Sans Serif"));
            caption.setPixelSize(11);
            p.setFont(caption);
            p.setPen(dark ? QColor(255, 255, 255) : QColor(0, 0, 0));
            p.drawText(heading.adjusted(5, 0, 0, 0), Qt::AlignVCenter, QStringLiteral("Ragione sociale"));
            p.setFont(font);
            y += rowHeight;
        }

        // The arrows: one row per colour, up and down on a light band, on a dark band, and on
        // a checkerboard.
        const QColor backs[3] = {QColor(246, 246, 246), QColor(40, 41, 44), QColor()};
        for (size_t i = 0; i < ArrowColours().size(); ++i) {
            const ColorArrowType colour = ArrowColours()[i];
            const int top = arrowsTop + static_cast<int>(i) * arrowRow;
            p.setPen(QColor(40, 40, 40));
            p.drawText(QRect(8, top, kLabelWidth - 8, kArrowHeight * kPlainZoom), Qt::AlignVCenter,
                       QString::fromUtf8(ArrowName(colour)));
            for (int b = 0; b < 3; ++b) {
                const int left = kLabelWidth + b * 2 * (arrowPair + 8) + (b > 0 ? b * kGap : 0);
                Pair(p, ArrowUp(colour), QPoint(left, top), backs[b]);
                Pair(p, ArrowDown(colour), QPoint(left + arrowPair + 8, top), backs[b]);
            }
        }

        // The chooser button and the hand, on a checkerboard, with the hand's hot spot marked.
        p.drawText(QPoint(8, othersTop - 6), QStringLiteral("Chooser"));
        Pair(p, ChooserButton(), QPoint(8, othersTop));
        const int handLeft = 8 + 3 * kChooserButtonSize * kPlainZoom + kGap * 2;
        p.drawText(QPoint(handLeft, othersTop - 6), QStringLiteral("Hand (hot spot in red)"));
        Pair(p, HandPointer(), QPoint(handLeft, othersTop));
        const HotSpot hot = *HandPointer()->hotSpot;
        p.setPen(QColor(230, 0, 0));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRect(handLeft + hot.x * kPlainZoom, othersTop + hot.y * kPlainZoom, kPlainZoom - 1, kPlainZoom - 1));
    }

    // Every placed picture shows its own pixels where it was placed (opaque pixels exactly).
    for (const Placed& placedPicture : placed) {
        const Image& plain = *placedPicture.picture;
        const Image& fine = *placedPicture.picture->doubleScale;
        auto check = [&](const Image& image, QPoint at, int zoom) {
            int compared = 0;
            for (int y = 0; y < image.height; ++y)
                for (int x = 0; x < image.width; ++x) {
                    const uint32_t argb = image.at(x, y);
                    if ((argb >> 24) != 0xFF) continue;
                    if (image.hotSpot && x == image.hotSpot->x && y == image.hotSpot->y) continue;
                    EXPECT_EQ(sheet.pixel(at.x() + x * zoom + zoom / 2, at.y() + y * zoom + zoom / 2), argb);
                    ++compared;
                }
            EXPECT_GT(compared, 0);
        };
        check(plain, placedPicture.plainAt, kPlainZoom);
        check(fine, placedPicture.fineAt, kFineZoom);
    }
    const QString path = QDir(QStringLiteral(TABULON_TEST_OUTPUT_DIR)).filePath(QStringLiteral("drawn_pictures_sheet.png"));
    ASSERT_TRUE(sheet.save(path, "PNG")) << path.toStdString();
    const QImage back(path);
    EXPECT_EQ(back.size(), sheet.size());
}

}  // namespace
}  // namespace TabulonLib12
