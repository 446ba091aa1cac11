#pragma once

#include "notation/Notation.h"

#include <string_view>

namespace skyvert {

class RADecFormat;

/// The fields of a position as they were typed: in hours or degrees, unsigned or not, unchecked.
struct Fields {
    double first = 0.0;
    double minutes = 0.0;
    double seconds = 0.0;
};

/// Cuts a text by the notation's method and reads each field with `reader`'s `StrToDbl`. A field
/// that is missing is 0, and fields behind the third are ignored. Notations that share a method
/// read each other's texts: two fields and three fields are cut alike.
Fields cutFields(std::string_view text, const Notation& notation, const RADecFormat& reader);

} // namespace skyvert
