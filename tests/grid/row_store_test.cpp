#include <gtest/gtest.h>

#include <string>

#include "grid/row_store.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {
namespace {

TEST(RowStore, FreshStoreIsTheSingleEmptyCell) {
    RowStore store;
    EXPECT_EQ(store.RowBound(), 0);
    EXPECT_EQ(store.ColBound(), 0);
    EXPECT_EQ(store.Cell(0, 0), "");
    EXPECT_TRUE(store.IsEmpty(0, 0));
}

TEST(RowStore, CellsKeepWhatIsWrittenAndRewritesReplaceIt) {
    RowStore store(2, 3);
    store.SetCell(1, 2, "hello");
    store.SetCell(2, 3, "x");
    EXPECT_EQ(store.Cell(1, 2), "hello");
    EXPECT_EQ(store.Cell(2, 3), "x");
    EXPECT_EQ(store.Cell(0, 0), "");
    store.SetCell(1, 2, "a longer text than before");
    EXPECT_EQ(store.Cell(1, 2), "a longer text than before");
    store.SetCell(1, 2, "");
    EXPECT_TRUE(store.IsEmpty(1, 2));
}

TEST(RowStore, IndexOutsideTheBoundsFailsWithSubscriptError) {
    RowStore store(1, 1);
    for (auto [r, c] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 2}}) {
        try {
            store.SetCell(r, c, "x");
            FAIL() << "write at " << r << "," << c << " did not fail";
        } catch (const Error& e) {
            EXPECT_EQ(e.kind(), ErrorKind::OutOfBounds);
            EXPECT_EQ(e.number(), 9);
        }
        EXPECT_THROW((void)store.Cell(r, c), Error);
    }
}

TEST(RowStore, ColumnResizeKeepsContentsAndRowBound) {
    RowStore store(3, 2);
    for (int r = 0; r <= 3; ++r)
        for (int c = 0; c <= 2; ++c) store.SetCell(r, c, std::to_string(r) + ":" + std::to_string(c));
    store.ResizeColumns(4);
    EXPECT_EQ(store.RowBound(), 3);
    EXPECT_EQ(store.ColBound(), 4);
    EXPECT_EQ(store.Cell(3, 2), "3:2");
    EXPECT_TRUE(store.IsEmpty(3, 4));
    store.ResizeColumns(1);
    EXPECT_EQ(store.Cell(2, 1), "2:1");
    EXPECT_THROW((void)store.Cell(2, 2), Error);
}

TEST(RowStore, TextsLongerThanABlockAndManyBlocksStayIntact) {
    RowStore store(1000, 1);
    const std::string big(5 * 1024 * 1024, 'z');  // beyond one reference's length field
    store.SetCell(0, 0, big);
    for (int r = 1; r <= 1000; ++r) store.SetCell(r, 1, std::string(9000, static_cast<char>('a' + r % 26)));
    EXPECT_EQ(store.Cell(0, 0), big);
    EXPECT_EQ(store.Cell(777, 1), std::string(9000, static_cast<char>('a' + 777 % 26)));
    const std::string three(3 * 1024 * 1024, 'q');  // fits a block of its own
    store.SetCell(1, 0, three);
    EXPECT_EQ(store.Cell(1, 0), three);
    EXPECT_EQ(store.Cell(1000, 1).size(), 9000u);
}

TEST(RowStore, MemoryIsTheTextPlusEightBytesACellAndLittleMore) {
    const int rows = 100000;
    RowStore store(rows - 1, 9);
    size_t text = 0;
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c <= 9; ++c) {
            const std::string cell = "cell " + std::to_string(r * 10 + c);
            store.SetCell(r, c, cell);
            text += cell.size();
        }
    const size_t cells = static_cast<size_t>(rows) * 10;
    EXPECT_LE(store.MemoryBytes(), static_cast<size_t>(1.1 * text) + 8 * cells + (4u << 20));
}

}  // namespace
}  // namespace TabulonLib12
