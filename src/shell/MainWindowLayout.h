#pragma once

#include "controls/ControlLayout.h"

#include <span>

namespace skyvert {

/// The window itself and every control that stands in it, in the order of their creation.
std::span<const ControlLayout> mainWindowLayout();

inline constexpr int kMainWindowMinimumHeight = 500;
inline constexpr int kMainWindowMaximumHeight = 32000;

} // namespace skyvert
