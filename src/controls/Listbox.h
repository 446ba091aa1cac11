#pragma once

#include "controls/Controls.h"
#include "controls/RowStore.h"

#include <span>

namespace skyvert {

/// A surface to paint one cell on, in points from the cell's top left.
class Graphics {
public:
    virtual ~Graphics() = default;

    virtual int Width() const = 0;
    virtual int Height() const = 0;
    virtual void setForeColor(Color color) = 0;
    virtual void FillRect(int x, int y, int width, int height) = 0;
};

/// Rows `first` to `last`, both included.
struct RowRange {
    std::int64_t first;
    std::int64_t last;

    friend bool operator==(const RowRange&, const RowRange&) = default;
};

/// A table of text cells with headings; any number of rows can be selected.
///
/// Adding and selecting a row takes constant time. So `refresh` of a view must leave the update to
/// the next turn of the event loop, except after a deletion.
class Listbox : public Control {
public:
    using Control::Control;

    /// Replaces the columns and deletes all rows.
    void setColumns(std::vector<std::string> headings);

    std::int64_t ColumnCount() const { return static_cast<std::int64_t>(headings_.size()); }

    std::int64_t RowCount() const { return static_cast<std::int64_t>(rows_.size()); }

    /// The index of the row added last, -1 on an empty list.
    std::int64_t LastIndex() const { return RowCount() - 1; }

    /// Appends a row, element i into column i.
    void AddRow(std::span<const std::string_view> cells);

    void DeleteAllRows();

    /// A cell's text, valid until rows are next added or deleted. Throws `std::out_of_range`.
    std::string_view Cell(std::int64_t row, std::int64_t column) const;

    /// A column's heading. Throws `std::out_of_range`.
    const std::string& Heading(std::int64_t column) const;
    void setHeading(std::int64_t column, std::string_view text);

    /// The first selected row, -1 for none.
    std::int64_t listIndex() const { return selection_.empty() ? -1 : selection_.front().first; }

    /// Makes a row the only selected one; -1 clears the selection.
    void setListIndex(std::int64_t row);

    bool Selected(std::int64_t row) const;

    /// The selected rows: ascending ranges that neither overlap nor touch.
    const std::vector<RowRange>& selection() const { return selection_; }

    /// Selects just these rows. The ranges may come in any order and overlap; rows that do not
    /// exist are left out.
    void setSelection(std::vector<RowRange> ranges);

    /// The selected rows as text: cells joined by tabs, every row ended by LF.
    std::string selectedText() const;

    /// Paints the background of a cell. Returns true if no other background must be painted.
    bool paintCellBackground(Graphics& graphics, std::int64_t row, std::int64_t column) const;

    std::function<bool(Graphics&, std::int64_t row, std::int64_t column)> CellBackgroundPaint;

    /// The number of deletions so far. Lets a view distinguish a list that has grown from one that
    /// was emptied and filled again.
    std::uint64_t generation() const { return generation_; }

private:
    std::vector<std::string> headings_;
    RowStore rows_{0};
    std::vector<RowRange> selection_;
    std::uint64_t generation_ = 0;
};

} // namespace skyvert
