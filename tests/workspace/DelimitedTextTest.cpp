#include "workspace/DelimitedText.h"

#include <gtest/gtest.h>

namespace skyvert::delimited_text_test {

/// Each field of a line in brackets.
std::string split(LineSplitter& splitter, std::string_view line, Dialect dialect) {
    std::string fields;
    for (const std::string_view field : splitter.split(line, dialect))
        fields.append("[").append(field).append("]");
    return fields;
}

TEST(DelimitedText, ReadsEveryDialect) {
    const struct {
        const char* dialect;
        std::vector<std::pair<const char*, const char*>> lines;
    } tables[] = {
        {"", {{"a\tb,c d", ""}}},
        {"Tab-Separated", {{"", ""}, {"a\t\tb\t", "[a][][b][]"}, {"a b", "[a b]"}}},
        {"space-separated", {{"a  b c", "[a][b][c]"}, {"a   b", "[a][][b]"}, {" a", "[][a]"}}},
        {"Comma-separated", {
            {"", ""}, {" \t ", ""}, {"a,b,c", "[a][b][c]"}, {"a , b", "[a][b]"}, {"a,b,", "[a][b]"},
            {"a,,b", "[a][][b]"}, {",a", "[][a]"}, {",", "[]"}, {R"("a,b",c)", "[a,b][c]"},
            {R"("a""b")", R"([a"b])"}, {R"("")", "[]"}, {R"("",x)", "[][x]"},
            {R"(" a " , b)", "[ a ][b]"}, {R"("a", "b")", "[a][b]"}, {R"("abc"def,ghi)", "[abc][def][ghi]"},
            {R"("abc)", "[abc]"}, {R"("abc"")", R"([abc"])"}, {R"(""")", R"(["])"},
            {R"(a"b,c)", R"([a"b][c])"}, {"\"a\"  \t\"b\u00B0,\" ,", "[a][b\u00B0,]"},
            // A line that differs from the one before in case alone yields the fields of that.
            {"12h,+3", "[12h][+3]"}, {"12H,+3", "[12h][+3]"}, {"12H,+3 ", "[12H][+3]"}}}};

    for (const auto& [dialect, lines] : tables) {
        LineSplitter splitter;
        for (const auto& [line, fields] : lines)
            EXPECT_EQ(split(splitter, line, dialectNamed(dialect)), fields) << line;
    }
}

} // namespace skyvert::delimited_text_test
