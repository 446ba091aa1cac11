#pragma once

#include <string>

namespace skyvert {

/// How the system's locale writes numbers. The program reads it once, at its start, and passes it
/// on as data: its owner keeps it for the whole run, all others hold a reference, so that no copy
/// is out of date. Each text is one UTF-8 character.
struct Locale {
    std::string decimalPoint = ".";
    std::string groupSeparator = ","; ///< between groups of three digits; empty for no grouping
};

} // namespace skyvert
