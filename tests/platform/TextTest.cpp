#include "platform/Text.h"

#include <gtest/gtest.h>


namespace skyvert::text_test {

using Fields = std::vector<std::string_view>;

TEST(Text, ReplacementIgnoresCaseAndNeverLooksAtWhatItPutIn) {
    struct Case { std::string_view text, wanted, by, first, all; };
    const Case cases[] = {
        {"12H34h", "h", ":", "12:34h", "12:34:"}, {"a    b", "  ", " ", "a   b", "a  b"},
        {"a   b", "  ", " ", "a  b", "a  b"}, {"aaa", "A", "aa", "aaaa", "aaaaaa"},
        {"1°2°", "°", "", "12°", "12"}, {"É", "é", "e", "É", "É"}, {"abc", "", "x", "abc", "abc"},
        {"", "a", "x", "", ""}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(Replace(c.text, c.wanted, c.by), c.first);
        EXPECT_EQ(ReplaceAll(c.text, c.wanted, c.by), c.all);
    }
}

TEST(Text, BytesThatAreNoUtf8AreHarmless) {
    EXPECT_EQ(Len("\xFF\xC2z"), 3U);
    EXPECT_EQ(Len("\x80\x80z"), 2U);
    EXPECT_EQ(Left("\x80\x80z", 1), "\x80\x80");
    EXPECT_EQ(Mid("z\xC2", 2), "\xC2");
}

TEST(Text, TrimAndComparisonKnowAsciiOnly) {
    EXPECT_EQ(Trim(" \t\r\n\v\f a b \n"), "a b");
    EXPECT_EQ(Trim(" \t"), "");
    EXPECT_TRUE(equalsIgnoringCase("HHhMMm", "hhHmmM"));
    for (const auto& [left, right] : {std::pair{"i", "İ"}, {"É", "é"}, {"[", "{"}, {"a", "ab"}})
        EXPECT_FALSE(equalsIgnoringCase(left, right)) << left;
}

} // namespace skyvert::text_test
