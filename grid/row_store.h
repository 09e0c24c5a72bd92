#pragma once
// RowStore, the control's MatriceRighe: a two-dimensional array of texts, rows from 0 to the
// row bound, columns from 0 to the column bound. A million records of ten columns must load
// fast and fit in memory, so the texts live in an arena of blocks that is never copied while it
// grows, and each cell is one 8-byte reference into it. A rewritten cell gets new room at the
// arena's end; the old bytes stay until the store is replaced.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace TabulonLib12 {

class RowStore {
public:
    // A fresh store of rows 0..rowBound and columns 0..colBound, every cell empty. The fresh
    // store of a new control is the single cell (0, 0).
    explicit RowStore(int32_t rowBound = 0, int32_t colBound = 0);

    int32_t RowBound() const { return rowBound_; }  // upper bound, inclusive
    int32_t ColBound() const { return colBound_; }
    bool InBounds(int64_t row, int64_t col) const {
        return row >= 0 && row <= rowBound_ && col >= 0 && col <= colBound_;
    }

    // Reads and writes; an index outside the bounds fails with a subscript error.
    std::string_view Cell(int64_t row, int64_t col) const;
    void SetCell(int64_t row, int64_t col, std::string_view text);
    bool IsEmpty(int64_t row, int64_t col) const;

    // Keeps contents and the row bound; columns beyond the new bound are dropped, new ones
    // are empty.
    void ResizeColumns(int32_t colBound);

    // Bytes held: the arena blocks and the cell references.
    size_t MemoryBytes() const;

private:
    // A cell reference packs the block (high 20 bits), the offset in it (22 bits) and the
    // length (low 22 bits). Blocks start at 64 KiB and double up to 4 MiB, so a short list stays
    // small and a long one never copies what it holds.
    static constexpr unsigned kLengthBits = 22;
    static constexpr unsigned kOffsetBits = 22;
    static constexpr uint64_t kMaxBlockSize = uint64_t{1} << kOffsetBits;  // 4 MiB
    static constexpr uint64_t kFirstBlockSize = uint64_t{1} << 16;
    static constexpr uint64_t kLongText = (uint64_t{1} << kLengthBits) - 1;  // marks a text kept apart
    static constexpr uint64_t kMaxBlocks = uint64_t{1} << (64 - kLengthBits - kOffsetBits);

    // The store's memory comes from the C allocator: the cells' zeroed pages need no clearing,
    // and a refused allocation is reported as std::bad_alloc in every build, sanitizers
    // included (whose operator new ends the process instead).
    struct FreeMemory {
        void operator()(void* p) const { std::free(p); }
    };
    template <class T>
    using Memory = std::unique_ptr<T[], FreeMemory>;
    static Memory<uint64_t> ZeroedCells(size_t count);
    static Memory<char> Block(size_t bytes);

    size_t Slot(int64_t row, int64_t col) const;
    uint64_t Store(std::string_view text);

    int32_t rowBound_, colBound_;
    // A text of 4 MiB or more is kept in longTexts_; its reference holds that index in place
    // of block and offset, and the kLongText length.
    size_t cellCount_ = 0;
    Memory<uint64_t> cells_;
    std::vector<Memory<char>> blocks_;
    uint64_t blockSize_ = 0;  // size of the last block
    uint64_t used_ = 0;       // bytes used in the last block
    size_t blockBytes_ = 0;   // all blocks together
    std::vector<std::string> longTexts_;
};

}  // namespace TabulonLib12
