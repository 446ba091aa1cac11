#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// Rows of text cells in a compact form: one block of text holds the cells of 1024 rows. If these
/// rows have cells of the same lengths, as in most lists, a row takes only its bytes, otherwise its
/// bytes and one number for each cell. Rows are appended and never change.
class RowStore {
public:
    /// `columns` is the number of cells in every row.
    explicit RowStore(std::size_t columns) : columns_(columns) {}

    std::size_t size() const { return size_; }

    /// Appends a row. Missing cells are empty, surplus cells are dropped. Throws
    /// `std::length_error` if a block of 1024 rows would exceed 4 GiB.
    void append(std::span<const std::string_view> cells);

    /// The text of a cell, valid until rows are added or removed. Throws `std::out_of_range` if
    /// there is no such cell.
    std::string_view cell(std::size_t row, std::size_t column) const;

    void clear();

private:
    static constexpr std::size_t kRowsPerBlock = 1024;

    struct Block {
        std::string text;
        /// 0 and the end of each cell in `text`: of the first row alone while all rows have cells
        /// of the same lengths (a uniform block), otherwise of all rows.
        std::vector<std::uint32_t> bounds{0};
    };

    Block& blockWithRoom();
    bool isUniform(const Block& block) const;
    void addBounds(Block& block, std::span<const std::string_view> cells) const;

    std::size_t columns_;
    std::size_t size_ = 0;
    std::vector<Block> blocks_;
};

} // namespace skyvert
