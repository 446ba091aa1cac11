#include "controls/RowStore.h"

#include <limits>
#include <stdexcept>
#include <utility>

namespace skyvert {

RowStore::Block& RowStore::blockWithRoom() {
    if (size_ < blocks_.size() * kRowsPerBlock)
        return blocks_.back();
    Block block;
    block.ends.reserve(kRowsPerBlock * columns_);
    if (!blocks_.empty()) {
        // Rows of a list are alike, so the last block predicts the size of this one.
        blocks_.back().text.shrink_to_fit();
        block.text.reserve(blocks_.back().text.size() + blocks_.back().text.size() / 16);
    }
    return blocks_.emplace_back(std::move(block));
}

void RowStore::append(std::span<const std::string_view> cells) {
    Block& block = blockWithRoom();
    // Removes what an earlier call may have left when it ran out of memory.
    block.ends.resize(size_ % kRowsPerBlock * columns_);
    block.text.resize(block.ends.empty() ? 0 : block.ends.back());
    std::size_t length = block.text.size();
    for (const std::string_view text : cells)
        length += text.size();
    if (length > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("the cells of the list are too long");
    for (std::size_t column = 0; column < columns_; ++column) {
        if (column < cells.size())
            block.text += cells[column];
        block.ends.push_back(static_cast<std::uint32_t>(block.text.size()));
    }
    ++size_;
}

std::string_view RowStore::cell(std::size_t row, std::size_t column) const {
    if (row >= size_ || column >= columns_)
        throw std::out_of_range("no such cell in the list");
    const Block& block = blocks_[row / kRowsPerBlock];
    const std::size_t index = (row % kRowsPerBlock) * columns_ + column;
    const std::size_t begin = index == 0 ? 0 : block.ends[index - 1];
    return std::string_view(block.text).substr(begin, block.ends[index] - begin);
}

void RowStore::clear() {
    blocks_ = {};
    size_ = 0;
}

} // namespace skyvert
