#include "platform/Number.h"

#include "support/Table.h"

#include <cmath>

namespace skyvert::number_test {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Number, ValReadsTheNumberAtTheStartOfAText) {
    for (const auto& [text, value] : table<2>("val"))
        EXPECT_EQ(Val(text), number(value)) << text;
    EXPECT_EQ(Val(std::string(400, '9')), kInfinity);
    EXPECT_EQ(Val("-" + std::string(400, '9')), -kInfinity);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(Val(std::string(1'000'000, '0') + "3"), 3);
    EXPECT_TRUE(std::signbit(Val("-0")));
}

TEST(Number, CDblSkipsGroupSeparatorsOnlyWhereTheLocalePutsThem) {
    for (const auto& [decimalPoint, groupSeparator, text, value] : table<4>("cdbl"))
        EXPECT_EQ(CDbl(text, {decimalPoint, groupSeparator}), number(value)) << text;
}

TEST(Number, FixedTextIsTheDecimalNearestToTheExactValue) {
    std::array<char, kMaxFixedText> room;
    for (const auto& [value, decimals, width, text] : table<4>("fixed_text")) {
        char* const end =
            writeFixed(room.data(), number(value), std::stoi(decimals), std::stoi(width), ".");
        EXPECT_EQ(std::string_view(room.data(), end), text);
    }
    const double largest = std::numeric_limits<double>::lowest();
    EXPECT_EQ(writeFixed(room.data(), largest, 1 << 30, 1 << 30, "\U0001F600"),
              room.data() + kMaxFixedText);
}

TEST(Number, FormatFollowsItsMask) {
    for (const auto& [value, mask, text] : table<3>("format"))
        EXPECT_EQ(Format(number(value), mask, {",", "."}), text);
}

} // namespace skyvert::number_test
