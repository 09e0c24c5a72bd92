#include <gtest/gtest.h>

#include "platform/ui/graphics.h"

namespace TabulonLib12 {
namespace {

TEST(Colour, RgbPutsRedInTheLowByte) {
    EXPECT_EQ(Rgb(0x12, 0x34, 0x56), 0x563412u);
    EXPECT_EQ(Rgb(255, 255, 255), 0xFFFFFFu);
}

TEST(Colour, HighBitMarksASystemColour) {
    EXPECT_TRUE(IsSystemColour(SystemColour::ButtonFace));
    EXPECT_FALSE(IsSystemColour(0x80FFFF));  // pale yellow, a plain colour
}

TEST(Colour, PlainColourResolvesToItselfWithoutItsHighByte) {
    EXPECT_EQ(ResolveColour(0xF5DDCD), 0xF5DDCDu);
    EXPECT_EQ(ResolveColour(0x01123456), 0x123456u);
}

TEST(Colour, SystemColoursResolveToTheLightPalette) {
    EXPECT_EQ(ResolveColour(SystemColour::WindowBackground), 0xFFFFFFu);
    EXPECT_EQ(ResolveColour(SystemColour::WindowText), 0x000000u);
    EXPECT_EQ(ResolveColour(SystemColour::ButtonFace), 0xF0F0F0u);
    EXPECT_EQ(ResolveColour(SystemColour::ButtonText), 0x000000u);
    EXPECT_EQ(ResolveColour(SystemColour::Highlight), 0xD77800u);
    EXPECT_EQ(ResolveColour(SystemColour::HighlightText), 0xFFFFFFu);
    EXPECT_EQ(ResolveColour(SystemColour::InfoBackground), Rgb(255, 255, 225));
    EXPECT_EQ(ResolveColour(SystemColour::InfoText), 0x000000u);
    EXPECT_EQ(ResolveColour(SystemColour::ButtonShadow), Rgb(160, 160, 160));
}

TEST(Colour, UnknownSystemIndexShowsAsWindowText) {
    EXPECT_EQ(ResolveColour(0x800000FFu), ResolveColour(SystemColour::WindowText));
}

TEST(Colour, ResolvingTwiceChangesNothing) {
    const Colour once = ResolveColour(SystemColour::Highlight);
    EXPECT_EQ(ResolveColour(once), once);
}

}  // namespace
}  // namespace TabulonLib12
