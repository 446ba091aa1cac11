#pragma once

#include <span>
#include <stdexcept>
#include <string_view>

namespace skyvert {

/// The sides of the window to which a control keeps its distance as the window changes size.
enum Lock : unsigned { kLockLeft = 1, kLockTop = 2, kLockRight = 4, kLockBottom = 8 };

inline constexpr unsigned kLockTopLeft = kLockLeft | kLockTop;
inline constexpr unsigned kLockBottomLeft = kLockLeft | kLockBottom;
inline constexpr unsigned kLockAcross = kLockLeft | kLockTop | kLockRight;
inline constexpr unsigned kLockAll = kLockLeft | kLockTop | kLockRight | kLockBottom;

/// One row of a layout table: what a control is called and where it stands.
/// Lengths are in points, with the origin at the top left of the window or of the composite.
struct ControlLayout {
    std::string_view name;
    std::string_view parent = {}; ///< name of the group box around it; empty for none
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    unsigned locks = kLockTopLeft;
    int tabIndex = 0;           ///< order of the keyboard focus within the parent
    std::string_view text = {}; ///< caption, title or initial text
};

/// The row of a control in its layout table. Throws `std::out_of_range` for a name not in it.
constexpr const ControlLayout& layoutOf(std::span<const ControlLayout> table,
                                        std::string_view name) {
    for (const ControlLayout& row : table) {
        if (row.name == name)
            return row;
    }
    throw std::out_of_range("no such control in the layout");
}

} // namespace skyvert
