#include "grid/row_store.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

RowStore::Memory<uint64_t> RowStore::ZeroedCells(size_t count) {
    void* p = std::calloc(count == 0 ? 1 : count, sizeof(uint64_t));
    if (p == nullptr) throw std::bad_alloc();
    return Memory<uint64_t>(static_cast<uint64_t*>(p));
}

RowStore::Memory<char> RowStore::Block(size_t bytes) {
    void* p = std::malloc(bytes);
    if (p == nullptr) throw std::bad_alloc();
    return Memory<char>(static_cast<char*>(p));
}

RowStore::RowStore(int32_t rowBound, int32_t colBound)
    : rowBound_(rowBound), colBound_(colBound) {
    if (rowBound < 0 || colBound < 0) throw Error::OutOfBounds();
    cellCount_ = static_cast<size_t>(rowBound) * static_cast<size_t>(colBound + 1) + static_cast<size_t>(colBound + 1);
    cells_ = ZeroedCells(cellCount_);
}

size_t RowStore::Slot(int64_t row, int64_t col) const {
    if (!InBounds(row, col)) throw Error::OutOfBounds();
    return static_cast<size_t>(row) * static_cast<size_t>(colBound_ + 1) + static_cast<size_t>(col);
}

std::string_view RowStore::Cell(int64_t row, int64_t col) const {
    const uint64_t ref = cells_[Slot(row, col)];
    const uint64_t length = ref & kLongText;
    const uint64_t offset = ref >> kLengthBits;
    if (length == 0) return {};
    if (length == kLongText) return longTexts_[offset];
    const uint64_t block = offset >> kOffsetBits;
    const uint64_t inBlock = offset & (kMaxBlockSize - 1);
    return {blocks_[block].get() + inBlock, length};
}

bool RowStore::IsEmpty(int64_t row, int64_t col) const {
    return (cells_[Slot(row, col)] & kLongText) == 0;
}

uint64_t RowStore::Store(std::string_view text) {
    if (text.empty()) return 0;
    if (text.size() >= kLongText) {
        longTexts_.emplace_back(text);
        return (static_cast<uint64_t>(longTexts_.size() - 1) << kLengthBits) | kLongText;
    }
    if (blocks_.empty() || used_ + text.size() > blockSize_) {
        if (blocks_.size() == kMaxBlocks) throw Error::OutOfMemory();
        blockSize_ = blocks_.empty() ? kFirstBlockSize : std::min(blockSize_ * 2, kMaxBlockSize);
        while (blockSize_ < text.size()) blockSize_ *= 2;
        blocks_.push_back(Block(blockSize_));
        blockBytes_ += blockSize_;
        used_ = 0;
    }
    const uint64_t offset = ((blocks_.size() - 1) << kOffsetBits) | used_;
    std::memcpy(blocks_.back().get() + used_, text.data(), text.size());
    used_ += text.size();
    return (offset << kLengthBits) | text.size();
}

void RowStore::SetCell(int64_t row, int64_t col, std::string_view text) {
    const size_t slot = Slot(row, col);
    cells_[slot] = Store(text);
}

void RowStore::ResizeColumns(int32_t colBound) {
    if (colBound < 0) throw Error::OutOfBounds();
    if (colBound == colBound_) return;
    const size_t rows = static_cast<size_t>(rowBound_) + 1;
    const size_t oldWidth = static_cast<size_t>(colBound_) + 1;
    const size_t newWidth = static_cast<size_t>(colBound) + 1;
    Memory<uint64_t> cells = ZeroedCells(rows * newWidth);
    const size_t keep = std::min(oldWidth, newWidth);
    for (size_t r = 0; r < rows; ++r)
        std::memcpy(&cells[r * newWidth], &cells_[r * oldWidth], keep * sizeof(uint64_t));
    cells_ = std::move(cells);
    cellCount_ = rows * newWidth;
    colBound_ = colBound;
}

size_t RowStore::MemoryBytes() const {
    size_t bytes = cellCount_ * sizeof(uint64_t) + blockBytes_;
    for (const auto& t : longTexts_) bytes += t.capacity();
    return bytes;
}

}  // namespace TabulonLib12
