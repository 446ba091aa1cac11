#include "controls/RowStore.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace skyvert {

RowStore::Block& RowStore::blockWithRoom() {
    if (size_ < blocks_.size() * kRowsPerBlock)
        return blocks_.back();
    Block block;
    if (!blocks_.empty()) {
        // Rows of a list are alike, so the last block predicts the size of this one.
        blocks_.back().text.shrink_to_fit();
        block.text.reserve(blocks_.back().text.size());
    }
    return blocks_.emplace_back(std::move(block));
}

bool RowStore::isUniform(const Block& block) const {
    return block.bounds.size() == columns_ + 1;
}

void RowStore::append(std::span<const std::string_view> cells) {
    Block& block = blockWithRoom();
    const std::size_t row = size_ % kRowsPerBlock;
    bool uniform = isUniform(block);
    // Removes what an earlier call may have left when it ran out of memory.
    const std::size_t begin = (uniform ? row : 1) * block.bounds.back();
    block.text.resize(begin);
    std::size_t end = begin;
    for (std::size_t column = 0; column < columns_; ++column) {
        end += column < cells.size() ? cells[column].size() : 0;
        uniform = uniform && end - begin == block.bounds[column + 1];
    }
    if (end > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("the cells of the list are too long");
    for (const std::string_view text : cells.first(std::min(columns_, cells.size())))
        block.text += text;
    if (!uniform)
        addBounds(block, cells);
    ++size_;
}

/// Notes the bounds of each cell of a block that ends with the row of these cells.
void RowStore::addBounds(Block& block, std::span<const std::string_view> cells) const {
    std::vector<std::uint32_t>& bounds = block.bounds;
    const std::size_t row = size_ % kRowsPerBlock;
    // All the memory first, so that a row has all its bounds or none.
    bounds.reserve((row == 0 ? 1 : kRowsPerBlock) * columns_ + 1);
    while (bounds.size() <= row * columns_)
        bounds.push_back(bounds[bounds.size() - columns_] + bounds[columns_]);
    for (std::size_t column = 0; column < columns_; ++column) {
        const std::size_t length = column < cells.size() ? cells[column].size() : 0;
        bounds.push_back(bounds.back() + static_cast<std::uint32_t>(length));
    }
}

std::string_view RowStore::cell(std::size_t row, std::size_t column) const {
    if (row >= size_ || column >= columns_)
        throw std::out_of_range("no such cell in the list");
    const Block& block = blocks_[row / kRowsPerBlock];
    const std::size_t rowInBlock = row % kRowsPerBlock;
    const bool uniform = isUniform(block);
    const std::size_t index = uniform ? column : rowInBlock * columns_ + column;
    const std::size_t offset = uniform ? rowInBlock * block.bounds.back() : 0;
    const std::size_t begin = block.bounds[index];
    return std::string_view(block.text).substr(offset + begin, block.bounds[index + 1] - begin);
}

void RowStore::clear() {
    blocks_ = {};
    size_ = 0;
}

} // namespace skyvert
