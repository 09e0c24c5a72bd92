#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/ui/text_metrics.h"

namespace TabulonLib12 {
namespace {

TEST(HeadlessTextMetrics, Arial825LineIs13PixelsOf15Twips) {
    HeadlessTextMetrics m;
    EXPECT_EQ(m.TextHeight(Font{}), 195);
}

TEST(HeadlessTextMetrics, Arial825CharacterIs7Pixels) {
    HeadlessTextMetrics m;
    EXPECT_EQ(m.TextWidth(Font{}, "N"), 105);
    EXPECT_EQ(m.TextWidth(Font{}, "Label1"), 630);
}

TEST(HeadlessTextMetrics, BoldAddsOnePixelPerCharacter) {
    HeadlessTextMetrics m;
    Font bold;
    bold.bold = true;
    EXPECT_EQ(m.TextWidth(bold, "abc"), 3 * 8 * 15);
    EXPECT_EQ(m.TextHeight(bold), 195);  // bold does not change the line
}

TEST(HeadlessTextMetrics, CountsUtf8CharactersNotBytes) {
    HeadlessTextMetrics m;
    EXPECT_EQ(m.TextWidth(Font{}, "Città"), 5 * 105);
    EXPECT_EQ(m.TextWidth(Font{}, "\xE2\x82\xAC"), 105);  // the euro sign, three bytes
}

TEST(HeadlessTextMetrics, EmptyTextHasNoWidth) {
    HeadlessTextMetrics m;
    EXPECT_EQ(m.TextWidth(Font{}, ""), 0);
}

TEST(HeadlessTextMetrics, OtherSizesRoundUpToWholePixels) {
    HeadlessTextMetrics m;
    Font f;
    f.size = 12.0f;  // 16 px: line 18.4 -> 19, character 8.8 -> 9
    EXPECT_EQ(m.TextHeight(f), 19 * 15);
    EXPECT_EQ(m.TextWidth(f, "ab"), 2 * 9 * 15);
}

TEST(HeadlessTextMetrics, WholePixelResultsAreNotPushedUpByRounding) {
    HeadlessTextMetrics m;
    Font f;
    f.size = 15.0f;  // 20 px: line exactly 23, character exactly 11
    EXPECT_EQ(m.TextHeight(f), 23 * 15);
    EXPECT_EQ(m.TextWidth(f, "x"), 11 * 15);
}

TEST(HeadlessTextMetrics, SizesThatAreNotPositiveMeasureNothing) {
    HeadlessTextMetrics m;
    Font f;
    f.size = 0.0f;
    EXPECT_EQ(m.TextHeight(f), 0);
    f.size = -3.0f;
    EXPECT_EQ(m.TextWidth(f, "abc"), 0);
    f.size = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(m.TextHeight(f), 0);
}

TEST(HeadlessTextMetrics, HugeSizesStopAtTheLargestWidth) {
    HeadlessTextMetrics m;
    Font f;
    f.size = 1e30f;
    EXPECT_EQ(m.TextWidth(f, "abcdefghijklmnopqrst"), std::numeric_limits<int32_t>::max());
    EXPECT_GT(m.TextHeight(f), 0);
}

}  // namespace
}  // namespace TabulonLib12
