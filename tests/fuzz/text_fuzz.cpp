// Any line of a list and any stored epoch is read without failure, and what is written from it
// reads back.

#include "controls/EntryMask.h"
#include "notation/LookAlikes.h"
#include "notation/PastedPosition.h"
#include "shell/EpochSelector.h"
#include "support/Coordinates.h"
#include "support/TestDesktop.h"
#include "workspace/DelimitedText.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

using namespace skyvert;

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

void splitLine(std::string_view line) {
    LineSplitter splitter;
    for (const Dialect& dialect : dialects()) {
        const auto fields = splitter.split(line, dialect);
        std::string written;
        std::string quoted;
        appendRecord(fields, dialect, written);
        JoinCommaSeparated(fields, true, quoted);
        const std::vector<std::string> expected(fields.begin(), fields.end());
        const auto again = splitter.split(quoted, *dialectNamed("Comma-separated"));
        require(std::ranges::equal(expected, again));
    }
}

/// Pastes a text into the entry fields: what is translated fits the mask.
void paste(std::string_view text, const RADecFormat& format) {
    const std::string raMask = format.RAMask();
    const std::string decMask = format.DecMask();
    const auto requireFit = [](const std::string& fitted, const std::string& mask) {
        require(EntryMask(mask, ".").replace({}, 0, 0, fitted).has_value());
    };
    for (const std::string& mask : {raMask, decMask})
        if (const auto fitted = fitToMask(text, mask))
            requireFit(*fitted, mask);
    if (const auto position = splitPosition(text, raMask, decMask)) {
        requireFit(position->ra, raMask);
        requireFit(position->dec, decMask);
    }
}

/// What every notation reads in a text: the bits of its value, and its error.
using Readings = std::vector<std::pair<std::uint64_t, std::string_view>>;

Readings convert(std::string_view text, RADecFormat& format) {
    Readings readings;
    std::string_view error;
    for (const Coordinate& coordinate : kCoordinates)
        for (const std::string& notation : coordinate.notations()) {
            (format.*coordinate.select)(notation);
            paste(text, format);
            const double value = (format.*coordinate.read)(text, error);
            const bool inRange =
                coordinate.name == "RA" ? value >= 0 && value < 24 : std::abs(value) <= 90;
            require(!error.empty() || inRange);
            readings.emplace_back(std::bit_cast<std::uint64_t>(value), error);
            (format.*coordinate.read)((format.*coordinate.write)(value), error);
        }
    return readings;
}

void restoreEpoch(std::string_view text, const Locale& locale) {
    const FixedClock clock;
    EpochSelector epoch(Place{{.name = "epoch"}}, clock, locale);
    try {
        epoch.setSerialised(text);
    } catch (const std::invalid_argument&) {
        return;
    }
    const std::string stored = epoch.serialised();
    epoch.setSerialised(stored);
    require(epoch.serialised() == stored);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::array<Locale, 4> kLocales{
        {{".", ""}, {",", "."}, {"\u066B", "\u066C"}, {".", ","}}};
    if (size == 0)
        return 0;
    const Locale& locale = kLocales[data[0] % kLocales.size()];
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::string storage;
    const std::string_view folded = foldLookAlikes(text, storage);
    RADecFormat format(locale);
    format.setRADecimals(data[0] / 16 - 1);
    format.setDecDecimals(data[0] / 16 - 1);
    const Readings plain = convert(folded, format);
    format.setLocalised(true);
    const Readings localised = convert(folded, format);
    // With a point and no grouping, both readings must agree.
    require(locale.decimalPoint != "." || !locale.groupSeparator.empty() || plain == localised);
    splitLine(text);
    const std::string stored = RADecFormat(text, locale).AsString();
    require(RADecFormat(stored, locale).AsString() == stored);
    restoreEpoch(text, locale);
    return 0;
}
