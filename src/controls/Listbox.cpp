#include "controls/Listbox.h"

#include <algorithm>

namespace skyvert {

void Listbox::setColumns(std::vector<std::string> headings) {
    headings_ = std::move(headings);
    rows_ = RowStore(headings_.size());
    DeleteAllRows();
}

void Listbox::AddRow(std::span<const std::string_view> cells) {
    rows_.append(cells);
    refreshView();
}

void Listbox::DeleteAllRows() {
    rows_.clear();
    selection_.clear();
    ++generation_;
    refreshView();
}

std::string_view Listbox::Cell(std::int64_t row, std::int64_t column) const {
    // As an unsigned number, a negative index is far beyond the end.
    return rows_.cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
}

const std::string& Listbox::Heading(std::int64_t column) const {
    return headings_.at(static_cast<std::size_t>(column));
}

void Listbox::setHeading(std::int64_t column, std::string_view text) {
    assign(headings_.at(static_cast<std::size_t>(column)), text);
}

void Listbox::setListIndex(std::int64_t row) {
    const bool exists = row >= 0 && row < RowCount();
    if (exists && selection_.size() == 1 && selection_.front() == RowRange{row, row})
        return;
    selection_.clear();
    if (exists)
        selection_.push_back({row, row});
    refreshView();
}

bool Listbox::Selected(std::int64_t row) const {
    const auto range = std::lower_bound(
        selection_.begin(), selection_.end(), row,
        [](const RowRange& left, std::int64_t wanted) { return left.last < wanted; });
    return range != selection_.end() && range->first <= row;
}

void Listbox::setSelection(std::vector<RowRange> ranges) {
    std::sort(ranges.begin(), ranges.end(),
              [](const RowRange& left, const RowRange& right) { return left.first < right.first; });
    std::vector<RowRange> merged;
    for (RowRange range : ranges) {
        range = {std::max<std::int64_t>(range.first, 0), std::min(range.last, LastIndex())};
        if (range.first > range.last)
            continue;
        if (!merged.empty() && range.first <= merged.back().last + 1)
            merged.back().last = std::max(merged.back().last, range.last);
        else
            merged.push_back(range);
    }
    assign(selection_, merged);
}

std::string Listbox::selectedText() const {
    std::string text;
    for (const RowRange& range : selection_) {
        for (std::int64_t row = range.first; row <= range.last; ++row) {
            for (std::int64_t column = 0; column < ColumnCount(); ++column) {
                text += Cell(row, column);
                text += column + 1 < ColumnCount() ? '\t' : '\n';
            }
        }
    }
    return text;
}

bool Listbox::paintCellBackground(Graphics& graphics, std::int64_t row, std::int64_t column) const {
    return CellBackgroundPaint && CellBackgroundPaint(graphics, row, column);
}

} // namespace skyvert
