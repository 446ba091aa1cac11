#include "platform/Number.h"

#include <gtest/gtest.h>

#include <cmath>


namespace skyvert::number_test {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Number, ValReadsTheNumberThatATextOpensWith) {
    const std::pair<std::string, double> cases[] = {
        {"", 0}, {".", 0}, {"abc", 0}, {" 12", 0}, {"nan", 0}, {"--5", 0}, {"12 34", 12},
        {"12,5", 12}, {"1e5", 1}, {"0x10", 0}, {"1.2.3", 1.2}, {"-1.25x", -1.25}, {".5", 0.5}, {"+5.5", 5.5},
        {"007.250", 7.25}, {"56.789012345678", 56.789012345678},
        {"9007199254740993", 9007199254740992.0}, {"1234567890123456789", 1234567890123456800.0},
        {"9007199254740993.0000000000000000001", 9007199254740994.0},
        {"737856902.82684228", 737856902.8268423}, {"0.30000000000000004441", 0.30000000000000004}, {"00000000000000000000000001.5", 1.5},
        {"2.2250738585072014e", 2.2250738585072014}, {std::string(400, '9'), kInfinity},
        {"-" + std::string(400, '9'), -kInfinity}, {"0." + std::string(400, '0') + "1", 0},
        {std::string(1'000'000, '0') + "3", 3}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(Val(text), number) << text.substr(0, 50);
    EXPECT_TRUE(std::signbit(Val("-0")));
}

TEST(Number, CDblSkipsGroupingOnlyWhereTheLocalePutsIt) {
    const Locale english, german{",", "."}, french{",", "\u202F"}, ungrouped{",", ""};
    const Locale arabic{"\u066B", "\u066C"};

    const std::tuple<const Locale&, std::string_view, double> cases[] = {
        {english, "1,234,567.5", 1234567.5}, {english, "12,34", 12}, {english, "1,234,56", 1234},
        {english, "1234,567", 1234}, {english, "1,2345", 1}, {english, ",123", 0}, {english, "-1,234", -1234},
        {english, "0.123,456", 0.123}, {german, "12,5", 12.5}, {german, "12.5", 12},
        {german, "1.234,5", 1234.5}, {french, "1\u202F234,5", 1234.5}, {french, "1 234,5", 1},
        {arabic, "1\u066C234\u066B5", 1234.5}, {arabic, "1\u066A", 1}, {ungrouped, "1.234", 1},
        {ungrouped, "1,234", 1.234},
        {german, "123.456.789.012.345.678.901,5", 123456789012345678901.5}};
    for (const auto& [locale, text, number] : cases)
        EXPECT_EQ(CDbl(text, locale), number) << text;
}

// The expected texts come from exact decimal arithmetic on the doubles' values.
TEST(Number, FixedTextIsTheDecimalNearestToTheExactValue) {
    const std::tuple<double, int, int, std::string_view> cases[] = {
        {0.125, 2, 1, "0.12"}, {2.675, 2, 1, "2.67"}, {0.045, 2, 2, "00.04"},
        {59.995, 2, 2, "59.99"}, {59.9999999, 3, 2, "60.000"}, {8.5, 9, 2, "08.500000000"},
        {5e-10, 9, 1, "0.000000001"}, {-0.04, 1, 1, "-0.0"}, {-1.5e-320, 3, 1, "-0.000"},
        {-0.0, 1, 1, "0.0"}, {123456789.123456789, 9, 1, "123456789.123456791"},
        {2147483647.75, 1, 1, "2147483647.8"}, {68719476735.5, 0, 1, "68719476736"},
        {6871947673.65, 1, 1, "6871947673.6"}, {1e22, 2, 1, "10000000000000000000000.00"},
        {0.1, 20, 1, "0.10000000000000000555"}, {0.0, 0, 0, ""}, {0.25, 12, 0, ".250000000000"},
        {7, 0, 12, "000000000007"}, {3.7, -5, 1, "4"}, {kNaN, 2, 2, "nan"},
        {kInfinity, 2, 2, "inf"}, {-kInfinity, 2, 2, "-inf"}};
    std::array<char, kMaxFixedText> room;
    for (const auto& [number, decimals, width, text] : cases) {
        char* const end = writeFixed(room.data(), number, decimals, width, ".");
        EXPECT_EQ(std::string_view(room.data(), end), text);
    }
    const double largest = std::numeric_limits<double>::lowest();
    EXPECT_EQ(writeFixed(room.data(), largest, 1 << 30, 1 << 30, "\U0001F600"),
              room.data() + kMaxFixedText);
}

TEST(Number, FormatFollowsItsMask) {
    const Locale comma{",", "."};

    const std::tuple<double, std::string_view, std::string_view> cases[] = {
        {5, "000", "005"}, {1234, "00", "1234"}, {-5, "00", "05"}, {5.5, "-00.000", "05,500"},
        {1.1, "0.0", "1,1"}, {-0.0, "-0.00", "0,00"}, {0.5, "-#.0##############", ",5"},
        {2, "-#.0##############", "2,0"}, {-1.25, "-#.0##############", "-1,25"},
        {100, "-#.0##############", "100,0"}, {0.1, "-#.0##############", ",1"},
        {-1e-16, "-#.0##############", "-,0"}, {1e-15, "-#.0##############", ",000000000000001"},
        {kNaN, "-#.0##############", "nan"}, {-kInfinity, "-0.0", "-inf"}};
    for (const auto& [number, mask, text] : cases)
        EXPECT_EQ(Format(number, mask, comma), text);
}

} // namespace skyvert::number_test
