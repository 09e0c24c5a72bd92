// The shared text vocabulary: comparisons without regard to case and comma lists.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/runtime/text.h"

namespace TabulonLib12 {
namespace {

TEST(Text, EqualsInsensitiveFoldsAsciiLettersOnly) {
    EXPECT_TRUE(EqualsInsensitive("ImageList1", "imagelist1"));
    EXPECT_FALSE(EqualsInsensitive("abc", "abcd"));
    EXPECT_FALSE(EqualsInsensitive("\xC3\x80", "\xC3\xA0"));  // no locale-dependent folding
    EXPECT_TRUE(EqualsInsensitive("", ""));
}

TEST(Text, StartsWithInsensitive) {
    EXPECT_TRUE(StartsWithInsensitive("PostgreSQL://host/db", "postgresql://"));
    EXPECT_FALSE(StartsWithInsensitive("post", "postgresql://"));
}

TEST(Text, ListHoldsKeepsBlanksAndEmptyPiecesAsTheyStand) {
    EXPECT_TRUE(ListHolds("1,,2", "2"));
    EXPECT_FALSE(ListHolds(" 3", "3"));  // blanks are part of the piece
    EXPECT_FALSE(ListHolds("1,,2", ""));
}

TEST(Text, ForEachPieceGivesEveryPieceEmptyOnesIncluded) {
    std::vector<std::string> pieces;
    ForEachPiece(",a,,b,", ',', [&](std::string_view p) {
        pieces.emplace_back(p);
        return false;
    });
    EXPECT_EQ(pieces, (std::vector<std::string>{"", "a", "", "b", ""}));
    EXPECT_EQ(PieceCount(",a,,b,", ','), 5u);
    EXPECT_EQ(PieceCount("", ','), 1u);
}

TEST(Text, ForEachPieceStopsWhenAskedTo) {
    int seen = 0;
    EXPECT_TRUE(ForEachPiece("a,b,c", ',', [&](std::string_view p) {
        ++seen;
        return p == "b";
    }));
    EXPECT_EQ(seen, 2);
}

TEST(Text, IsValidUtf8AcceptsWellFormedSequences) {
    EXPECT_TRUE(IsValidUtf8(""));
    EXPECT_TRUE(IsValidUtf8("plain"));
    EXPECT_TRUE(IsValidUtf8("citt\xC3\xA0 \xE2\x82\xAC \xF0\x9F\x98\x80"));  // à, the euro sign, an emoji
    EXPECT_TRUE(IsValidUtf8("\xF4\x8F\xBF\xBF"));                                  // U+10FFFF
    EXPECT_TRUE(IsValidUtf8(std::string_view("a\0b", 3)));
}

TEST(Text, IsValidUtf8RefusesMalformedSequences) {
    EXPECT_FALSE(IsValidUtf8("\x80"));              // a stray continuation byte
    EXPECT_FALSE(IsValidUtf8("\xC0\xAF"));          // an overlong '/'
    EXPECT_FALSE(IsValidUtf8("\xE0\x80\xAF"));      // an overlong '/' in three bytes
    EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));      // a surrogate
    EXPECT_FALSE(IsValidUtf8("\xF4\x90\x80\x80"));  // beyond U+10FFFF
    EXPECT_FALSE(IsValidUtf8("abc\xE2\x82"));       // cut short
    EXPECT_FALSE(IsValidUtf8("\xFF"));
}

}  // namespace
}  // namespace TabulonLib12
