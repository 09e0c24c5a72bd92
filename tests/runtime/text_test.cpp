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

}  // namespace
}  // namespace TabulonLib12
