#include "platform/Text.h"

#include "support/Table.h"

namespace skyvert::text_test {

TEST(Text, ReplacementIgnoresCaseAndNeverRescansItsOutput) {
    for (const auto& [text, wanted, by, first, all] : table<5>("replacements")) {
        EXPECT_EQ(Replace(text, wanted, by), first) << text;
        EXPECT_EQ(ReplaceAll(text, wanted, by), all) << text;
    }
}

TEST(Text, InvalidUtf8IsHarmless) {
    EXPECT_EQ(Len("\xFF\xC2z"), 3U);
    EXPECT_EQ(Len("\x80\x80z"), 2U);
    EXPECT_EQ(Left("\x80\x80z", 1), "\x80\x80");
    EXPECT_EQ(Mid("z\xC2", 2), "\xC2");
}

TEST(Text, TrimAndComparisonApplyToAsciiOnly) {
    EXPECT_EQ(Trim(" \t\r\n\v\f a b \n"), "a b");
    EXPECT_EQ(Trim(" \t"), "");
    EXPECT_TRUE(equalsIgnoringCase("HHhMMm", "hhHmmM"));
    for (const auto& [left, right] : {std::pair{"i", "İ"}, {"É", "é"}, {"[", "{"}, {"a", "ab"}})
        EXPECT_FALSE(equalsIgnoringCase(left, right)) << left;
}

} // namespace skyvert::text_test
