#include "notation/RADecFormat.h"

#include <gtest/gtest.h>

// Tables stand several cases to a line.
// clang-format off

namespace skyvert {
namespace {

const Locale kPoint;

TEST(RADecFormat, TextFormIsReadFieldByField) {
    struct Case { std::string_view text, written; };
    const Case cases[] = {
        {"", "HH MM SS\t+DD MM SS\tN\t0\t0"}, {"DDD", "DDD\t+DD MM SS\tN\t0\t0"},
        {"\t", "\t\tN\t0\t0"}, {"HH:MM:SS\t+DD:MM:SS\tY\t3\t2", "HH:MM:SS\t+DD:MM:SS\tY\t3\t2"},
        {"hh mm ss\tno such\ty\t2.9\tabc\tsixth", "hh mm ss\tno such\tY\t2\t0"},
        {"HH\tDD\tyes\t-1\t-2.9", "HH\tDD\tN\t-1\t-2"}, {"HH\tDD\t1\t\t8", "HH\tDD\tN\t0\t8"},
        {"HH\tDD\t\t99999999999999999999\t-99999999999999999999", "HH\tDD\tN\t9223372036854775807\t-9223372036854775808"},
        {"DDD°MM'SS\"\t+DD°MM'\tN", "DDD°MM'SS\"\t+DD°MM'\tN\t0\t0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const RADecFormat format(c.text, kPoint);
        EXPECT_EQ(format.AsString(), c.written);
        EXPECT_EQ(RADecFormat(c.written, kPoint).AsString(), c.written);
        EXPECT_EQ(format.decpt(), "");
    }
}

TEST(RADecFormat, NumberTextHasItsDecimalsAndLeastWidth) {
    struct Case { double value; std::int64_t decimals; int width; std::string_view text; };
    const Case cases[] = {
        {59.6, 0, 2, "60"}, {5.4, 0, 2, "05"}, {2.5, 0, 1, "3"}, {-2.5, 0, 1, "-3"},
        {5.5, 3, 2, "05.500"}, {236.78, 2, 1, "236.78"}, {-0.5, 1, 1, "-0.5"}, {-0.4, 0, 1, "0"},
        {-0.04, 1, 1, "-0.0"}, {2.5, -1, 1, "3"},
    };
    const RADecFormat format(kPoint);
    for (const Case& c : cases)
        EXPECT_EQ(format.DoubleToStr(c.value, c.decimals, c.width), c.text);
    EXPECT_EQ(format.DoubleToStr(0.5, INT64_MAX, 1).substr(0, 4), "0.50");
}

TEST(RADecFormat, LocalesSeparatorIsWrittenAndReadOnlyWhenLocalised) {
    Locale locale{",", "."};
    RADecFormat format(locale);
    EXPECT_EQ(format.DoubleToStr(12.5, 0, 2), "13");
    EXPECT_EQ(format.decpt(), "");
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12.50");
    EXPECT_EQ(format.decpt(), ",");
    EXPECT_EQ(format.StrToDbl("12,5"), 12.0);
    // A record that outlives a change of the locale keeps the separator that it has learned.
    locale.decimalPoint = "\u066B";
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12\u066B50");
    EXPECT_EQ(RADecFormat(locale).DoubleToStr(12.5, 2, 2), "12.50");

    format.setLocalised(true);
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12\u066B50");
    EXPECT_EQ(format.StrToDbl("12\u066B5"), 12.5);
    EXPECT_EQ(format.StrToDbl("12.500"), 12500.0);
}

} // namespace
} // namespace skyvert
