#pragma once

#include <string_view>

namespace skyvert {

class ContainerControl;
class GroupBox;

/// The edges of the window from which a control keeps its distance when the window is resized.
enum Lock : unsigned { kLockLeft = 1, kLockTop = 2, kLockRight = 4, kLockBottom = 8 };

inline constexpr unsigned kLockTopLeft = kLockLeft | kLockTop;
inline constexpr unsigned kLockBottomLeft = kLockLeft | kLockBottom;
inline constexpr unsigned kLockAcross = kLockLeft | kLockTop | kLockRight;
inline constexpr unsigned kLockAll = kLockLeft | kLockTop | kLockRight | kLockBottom;

/// The name and position of a control. Lengths are in points, from the top left of the window or of
/// the composite.
struct ControlLayout {
    std::string_view name;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    std::string_view text = {}; ///< caption, title or initial text
    unsigned locks = kLockTopLeft;
};

/// A control's layout and its parents, see `ContainerControl::child`.
struct Place {
    ControlLayout layout;
    ContainerControl* owner = nullptr; ///< the window or composite that holds it; null for none
    const GroupBox* group = nullptr;   ///< the group box around it; null for none
};

} // namespace skyvert
