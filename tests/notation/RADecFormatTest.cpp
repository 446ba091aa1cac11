#include "notation/RADecFormat.h"

#include "support/Table.h"

namespace skyvert::radec_format_test {

const Locale kPoint;

TEST(RADecFormat, TextFormIsReadFieldByField) {
    for (const auto& [text, written] : table<2>("format_texts"))
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
