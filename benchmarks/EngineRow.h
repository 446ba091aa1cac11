#pragma once

#include "epochs/Precession.h"
#include "notation/RADecFormat.h"

#include <array>
#include <string_view>

namespace skyvert {

/// The engine's work on one row, with all that a list keeps between its rows: parses two texts,
/// precesses the position and renders both positions.
class EngineRow {
public:
    /// The same pair of notations on both sides, 2 and 1 decimals, 1950 to 2000.
    EngineRow(std::string_view raFormat, std::string_view decFormat) {
        for (RADecFormat* format : {&input_, &output_}) {
            format->setRaFormat(raFormat);
            format->setDecFormat(decFormat);
            format->setRADecimals(2);
            format->setDecDecimals(1);
        }
    }

    /// The four cells, one after the other. Valid until the next call.
    std::string_view convert(std::string_view ra, std::string_view dec) {
        const Pair position{input_.ImportRA(ra, error_), input_.ImportDec(dec, error_)};
        const Pair precessed = precession_.convert(position);
        char* end = cells_.data();
        end = input_.writeRA(position.Left, end);
        end = input_.writeDec(position.Right, end);
        end = output_.writeRA(precessed.Left, end);
        end = output_.writeDec(precessed.Right, end);
        return {cells_.data(), end};
    }

private:
    Locale locale_;
    RADecFormat input_{locale_};
    RADecFormat output_{locale_};
    Precession precession_{2433282.5, 2451544.5};
    std::string_view error_;
    std::array<char, 4 * RADecFormat::kMaxText> cells_;
};

} // namespace skyvert
