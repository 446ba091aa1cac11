#pragma once

#include <string>

namespace skyvert {

/// What the system's locale says about numbers. It is asked once, where the program starts, and
/// handed to the logic as data. Both texts are UTF-8 and hold one character of any width.
struct Locale {
    std::string decimalPoint = ".";
    std::string groupSeparator = ","; ///< between groups of three digits; empty for no grouping
};

} // namespace skyvert
