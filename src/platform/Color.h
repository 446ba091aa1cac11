#pragma once

#include <cstdint>

namespace skyvert {

/// A colour as 0xAARRGGBB; the top byte is the transparency, 0 for an opaque colour.
struct Color {
    std::uint32_t value = 0;

    friend bool operator==(Color, Color) = default;
};

inline constexpr Color kBlack{0x000000};
inline constexpr Color kRed{0xFF0000};

} // namespace skyvert
