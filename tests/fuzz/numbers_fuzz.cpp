// Any numbers in a position, an epoch or a date are processed without failure.

#include "epochs/Precession.h"
#include "shell/EpochSelector.h"
#include "support/Coordinates.h"
#include "support/TestDesktop.h"

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace skyvert;

namespace {

void render(double number, RADecFormat& format) {
    for (const Coordinate& coordinate : kCoordinates)
        for (const std::string& notation : coordinate.notations()) {
            (format.*coordinate.select)(notation);
            (format.*coordinate.write)(number);
        }
}

void date(double number, double other) {
    const FixedClock clock;
    const Locale locale;
    EpochSelector epoch(Place{{.name = "epoch"}}, clock, locale);
    epoch.setEpochJulian(number);
    epoch.setEpochYear(number);
    Date date = clock.now();
    date.setTotalSeconds(number);
    if (date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31)
        std::abort();
    date.year = std::bit_cast<std::int64_t>(number);
    date.month = std::bit_cast<std::int64_t>(other);
    date.day = date.hour = date.minute = date.second = date.year;
    epoch.setEpoch(date);
    if (!std::isfinite(date.TotalSeconds()) || !std::isfinite(epoch.epochJulian()))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::array<double, 4> numbers{};
    std::memcpy(numbers.data(), data, std::min(size, sizeof numbers));
    const Locale locale;
    RADecFormat format(locale);
    format.setRADecimals(std::bit_cast<std::int64_t>(numbers[3]));
    format.setDecDecimals(std::bit_cast<std::int64_t>(numbers[3]));
    for (const double number : numbers) {
        render(number, format);
        date(number, numbers[0]);
        for (const double other : numbers) {
            const Pair position = ConvertEpoch(numbers[0], number, {other, numbers[1]});
            if (position.Left < 0.0 || position.Left > 24.0000001)
                std::abort();
        }
    }
    return 0;
}
