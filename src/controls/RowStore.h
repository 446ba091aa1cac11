#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// Rows of text cells, kept compactly: the cells of many rows stand one behind the other in one
/// block of text, and a row costs its bytes and one number a cell. Rows are added at the end and
/// never change.
class RowStore {
public:
    /// `columns` is the number of cells in every row.
    explicit RowStore(std::size_t columns) : columns_(columns) {}

    std::size_t size() const { return size_; }

    /// Appends a row; cells that are missing are empty, cells too many are dropped. Throws
    /// `std::length_error` where 1024 rows would hold more than four gigabytes.
    void append(std::span<const std::string_view> cells);

    /// A cell's text, valid until rows are next added or removed. Throws `std::out_of_range`.
    std::string_view cell(std::size_t row, std::size_t column) const;

    void clear();

private:
    static constexpr std::size_t kRowsPerBlock = 1024;

    struct Block {
        std::string text;
        std::vector<std::uint32_t> ends; ///< where each cell ends in `text`
    };

    Block& blockWithRoom();

    std::size_t columns_;
    std::size_t size_ = 0;
    std::vector<Block> blocks_;
};

} // namespace skyvert
