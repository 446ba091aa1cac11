#include "workspace/DelimitedText.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

using Fields = std::vector<std::string>;

Fields split(std::string_view line, Dialect dialect) {
    LineSplitter splitter;
    const auto fields = splitter.split(line, dialect);
    return {fields.begin(), fields.end()};
}

TEST(DelimitedText, ReadsEveryDialect) {
    const struct {
        Dialect dialect;
        std::string_view line;
        Fields fields;
    } cases[] = {
        {Dialect::Tab, "", {}},
        {Dialect::Tab, "a\t\tb\t", {"a", "", "b", ""}},
        {Dialect::Tab, "a b", {"a b"}},
        {Dialect::Space, "a  b c", {"a", "b", "c"}},
        {Dialect::Space, "a   b", {"a", "", "b"}},
        {Dialect::Space, " a", {"", "a"}},
        {Dialect::None, "a\tb,c d", {}},
        {Dialect::Comma, "", {}},
        {Dialect::Comma, " \t ", {}},
        {Dialect::Comma, "a,b,c", {"a", "b", "c"}},
        {Dialect::Comma, "a , b", {"a", "b"}},
        {Dialect::Comma, "a,b,", {"a", "b"}},
        {Dialect::Comma, "a,,b", {"a", "", "b"}},
        {Dialect::Comma, ",a", {"", "a"}},
        {Dialect::Comma, ",", {""}},
        {Dialect::Comma, R"("a,b",c)", {"a,b", "c"}},
        {Dialect::Comma, R"("a""b")", {R"(a"b)"}},
        {Dialect::Comma, R"("")", {""}},
        {Dialect::Comma, R"("",x)", {"", "x"}},
        {Dialect::Comma, R"(" a " , b)", {" a ", "b"}},
        {Dialect::Comma, R"("abc"def,ghi)", {"abc", "def", "ghi"}},
        {Dialect::Comma, R"("abc)", {"abc"}},
        {Dialect::Comma, R"("abc"")", {R"(abc")"}},
        {Dialect::Comma, R"(""")", {R"(")"}},
        {Dialect::Comma, R"(a"b,c)", {R"(a"b)", "c"}},
        {Dialect::Comma, "\"12\xC2\xB0,\",b", {"12\xC2\xB0,", "b"}},
        {Dialect::Comma, "\"a\"  \t\"b\" ,", {"a", "b"}},
    };

    for (const auto& [dialect, line, fields] : cases)
        EXPECT_EQ(split(line, dialect), fields) << line;
}

TEST(DelimitedText, WritesEveryDialect) {
    const auto record = [](Dialect dialect, std::vector<std::string_view> fields) {
        std::string line;
        appendRecord(fields, dialect, line);
        return line;
    };
    EXPECT_EQ(record(Dialect::Tab, {"a b", "", "c"}), "a b\t\tc");
    EXPECT_EQ(record(Dialect::Space, {"a b", "", "c"}), "a b  c");
    EXPECT_EQ(record(Dialect::Comma, {"a,b", "a\"b", " a ", ""}), R"("a,b","a""b", a ,)");
    EXPECT_EQ(record(Dialect::None, {"a"}), "");
    std::string line;
    JoinCommaSeparated(std::vector<std::string_view>{"ab", ""}, true, line);
    EXPECT_EQ(line, R"("ab","")");
}

TEST(DelimitedText, ALineThatDiffersInCaseAloneYieldsTheFieldsBefore) {
    LineSplitter splitter;
    const auto read = [&](std::string_view line) {
        const auto fields = splitter.split(line, Dialect::Comma);
        return Fields{fields.begin(), fields.end()};
    };
    EXPECT_EQ(read("12h,+3"), (Fields{"12h", "+3"}));
    EXPECT_EQ(read("12H,+3"), (Fields{"12h", "+3"}));
    EXPECT_EQ(read("12H,+3 "), (Fields{"12H", "+3"}));
    EXPECT_EQ(read("x"), (Fields{"x"}));
    EXPECT_EQ(read(""), Fields{});
}

TEST(DelimitedText, DialectsAreNamedInAnyCase) {
    EXPECT_EQ(dialectNamed("Tab-Separated"), Dialect::Tab);
    EXPECT_EQ(dialectNamed("space-separated"), Dialect::Space);
    EXPECT_EQ(dialectNamed("Comma-separated"), Dialect::Comma);
    EXPECT_EQ(dialectNamed(""), Dialect::None);
}

} // namespace
} // namespace skyvert
