#include "notation/RADecFormat.h"

#include <gtest/gtest.h>


namespace skyvert::radec_format_test {

const Locale kPoint;

TEST(RADecFormat, TextFormIsReadFieldByField) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"", "HH MM SS\t+DD MM SS\tN\t0\t0"}, {"DDD", "DDD\t+DD MM SS\tN\t0\t0"},
        {"\t", "\t\tN\t0\t0"}, {"HH:MM:SS\t+DD:MM:SS\tY\t3\t2", "HH:MM:SS\t+DD:MM:SS\tY\t3\t2"},
        {"hh mm ss\tno such\ty\t2.9\tabc\tsixth", "hh mm ss\tno such\tY\t2\t0"},
        {"HH\tDD\tyes\t-1\t-2.9", "HH\tDD\tN\t-1\t-2"}, {"HH\tDD\t1\t\t8", "HH\tDD\tN\t0\t8"},
        {"HH\tDD\t\t99999999999999999999\t-99999999999999999999", "HH\tDD\tN\t9223372036854775807\t-9223372036854775808"},
        {"DDD°MM'SS\"\t+DD°MM'\tN", "DDD°MM'SS\"\t+DD°MM'\tN\t0\t0"}};
    for (const auto& [text, written] : cases)
        for (const std::string_view read : {text, written})
            EXPECT_EQ(RADecFormat(read, kPoint).AsString(), written);
}

TEST(RADecFormat, LocalesSeparatorIsWrittenAndReadOnlyWhenLocalised) {
    Locale locale{",", "."};
    RADecFormat format(locale);
    EXPECT_EQ(format.DoubleToStr(12.5, 0, 2), "13");
    EXPECT_EQ(format.decpt(), "");
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12.50");
    EXPECT_EQ(format.decpt(), ",");
    EXPECT_EQ(format.StrToDbl("12,5"), 12.0);
    // A format that outlives a change of the locale keeps the separator that it has learned.
    locale.decimalPoint = "\u066B";
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12\u066B50");
    EXPECT_EQ(RADecFormat(locale).DoubleToStr(12.5, 2, 2), "12.50");

    format.setLocalised(true);
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12\u066B50");
    EXPECT_EQ(format.StrToDbl("12\u066B5"), 12.5);
    EXPECT_EQ(format.StrToDbl("12.500"), 12500.0);
}

} // namespace skyvert::radec_format_test
