#pragma once

#include "notation/Notation.h"

#include <array>
#include <string_view>

namespace skyvert {

class RADecFormat;

/// The fields of a coordinate as typed, unchecked: hours or degrees, minutes and seconds.
using Fields = std::array<double, 3>;

/// Splits a text by the notation's method and reads each field like `reader`'s `StrToDbl`. Missing
/// fields are 0; fields after the third are ignored. Notations with two and with three fields that
/// share a method read each other's texts.
Fields cutFields(std::string_view text, const Notation& notation, const RADecFormat& reader);

} // namespace skyvert
