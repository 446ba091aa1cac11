#include "controls/EntryMask.h"
#include "platform/Text.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace skyvert::entry_typing_test {

bool isSeparator(char c) {
    return (c < '0' || c > '9') && c != '+' && c != '-';
}

/// Checks that a rendered text can be typed with and without its separators and can be pasted, and
/// that each digit and the sign can be deleted and typed again.
void expectTypable(const EntryMask& mask, const std::string& rendered) {
    const std::string shape = rendered.substr(0, rendered.find_last_not_of("ms'\"") + 1);
    std::string digits = rendered;
    std::erase_if(digits, isSeparator);
    const auto put = [&](const EntryText& entry, std::string_view keys) {
        return mask.replace(entry.text, entry.caret, entry.caret, keys).value_or(entry);
    };
    for (const std::string& keys : {shape, rendered, digits}) {
        EntryText typed;
        for (std::size_t i = 1; i <= Len(keys); ++i)
            typed = put(typed, Mid(keys, i, 1));
        EXPECT_EQ(typed.text, shape) << keys;
        EXPECT_EQ(put({}, keys).text, shape) << keys;
    }
    for (std::size_t i = 1; i <= Len(shape); ++i) {
        const std::string_view key = Mid(shape, i, 1);
        EXPECT_TRUE(isSeparator(key[0]) ||
                    put(mask.eraseBefore(shape, i), key) == (EntryText{shape, i}))
            << key << i << shape;
    }
}

TEST(EntryTyping, EveryRenderedPositionCanBeTypedPastedAndMended) {
    const double hours[] = {0.0, 0.0083, 1.2, 9.99999, 12.999999, 15.7851, 20.00347, 23.9999999};
    const double degrees[] = {0.0, -0.5, 5.25, 12.99999, -0.00001, -67.0101, 90.0, -89.9999999};
    int masks = 0;
    for (const Locale& locale : {Locale{".", ","}, Locale{",", "."}, Locale{"٫", "٬"}})
        for (int variant = 0; variant < 14; ++variant) {
            RADecFormat format(locale);
            format.setLocalised(variant % 2 == 1);
            format.setRADecimals(variant / 2);
            format.setDecDecimals(variant / 2);
            for (const auto& [name, notations, select, read, write, maskOf] : kCoordinates)
                for (const std::string& notation : notations()) {
                    (format.*select)(notation);
                    const std::string mask = (format.*maskOf)();
                    if (std::count(mask.begin(), mask.end(), '9') < std::max(variant / 2, 1))
                        continue;
                    ++masks;
                    const EntryMask entry(mask, locale.decimalPoint,
                                          RADecFormat::closingMark(mask));
                    for (const double value : name == "RA" ? hours : degrees)
                        expectTypable(entry, (format.*write)(value));
                }
        }
    EXPECT_GE(masks, 3 * 2 * (12 * 6 + 12 * 7)) << "masks of 5 and of 6 decimals";
}

} // namespace skyvert::entry_typing_test
