#pragma once

#include "notation/Notation.h"

#include <array>
#include <string_view>

namespace skyvert {

class RADecFormat;

/// The fields of a coordinate, not checked: hours or degrees, minutes, seconds.
using Fields = std::array<double, 3>;

/// Splits a text by the notation's way of cutting and reads each field as `StrToDbl` of `reader`
/// does. Missing fields are 0; fields after the third are ignored. Except in columns, notations of
/// two and three fields that share a way of cutting read each other's texts.
Fields cutFields(std::string_view text, const Notation& notation, const RADecFormat& reader);

} // namespace skyvert
