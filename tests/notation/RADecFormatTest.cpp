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

TEST(RADecFormat, CataloguesAreTheCallersOwn) {
    using Names = std::vector<std::string>;
    RADecFormat::SupportedRAFormats().clear();
    EXPECT_EQ(RADecFormat::SupportedRAFormats(),
              (Names{"HH", "HH MM", "HH MM SS", "HHMM", "HHMMSS", "HH:MM", "HH:MM:SS", "HHhMMm",
                     "HHhMMmSSs", "DDD", "DDD MM", "DDD MM SS", "DDDMM", "DDDMMSS", "DDD:MM",
                     "DDD:MM:SS", "DDD°MM'", "DDD°MM'SS\""}));
    EXPECT_EQ(RADecFormat::SupportedDecFormats(),
              (Names{"DD", "+DD", "+DD MM", "+DD MM SS", "+DDMM", "+DDMMSS", "+DD:MM", "+DD:MM:SS",
                     "+DD°MM'", "+DD°MM'SS\""}));
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

TEST(RADecFormat, MasksFollowTheNotationAndItsLocale) {
    struct Case { std::string_view ra, dec, raMask, decMask; };
    const Case cases[] = {
        {"HH", "DD", "", ""}, {"DDD", "+DD", "", ""}, {"none", "none", "", ""},
        {"hh mm", "+dd mm", R"(##\ ##.99999)", R"(&##\ ##.99999)"},
        {"HH MM SS", "+DD MM SS", R"(##\ ##\ ##.99999)", R"(&##\ ##\ ##.99999)"},
        {"HHMM", "+DDMM", "####.999999", "&####.999999"},
        {"HHMMSS", "+DDMMSS", "######.999999", "&######.999999"},
        {"HH:MM", "+DD:MM", R"(##\:##.99999)", R"(&##\:##.99999)"},
        {"HH:MM:SS", "+DD:MM:SS", R"(##\:##\:##.99999)", R"(&##\:##\:##.99999)"},
        {"HHhMMm", "", R"(##\h##.999999)", ""}, {"HHhMMmSSs", "", R"(##\h##\m##.999999)", ""},
        {"DDD MM", "", R"(###\ ##.99999)", ""}, {"DDD MM SS", "", R"(###\ ##\ ##.99999)", ""},
        {"DDDMM", "", "#####.999999", ""}, {"DDDMMSS", "", "#######.999999", ""},
        {"DDD:MM", "", R"(###\:##.99999)", ""}, {"DDD:MM:SS", "", R"(###\:##\:##.99999)", ""},
        {"DDD°MM'", "+DD°MM'", R"(###\°##.999999)", R"(&##\°##.999999)"},
        {"DDD°MM'SS\"", "+DD°MM'SS\"", R"(###\°##\'##.999999)", R"(&##\°##\'##.999999)"},
    };
    RADecFormat format("\t\tY", kPoint);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.ra);
        format.setRaFormat(c.ra);
        format.setDecFormat(c.dec);
        EXPECT_EQ(format.RAMask(), c.raMask);
        EXPECT_EQ(format.DecMask(), c.decMask);
    }
    EXPECT_EQ(RADecFormat("HH MM SS", kPoint).RAMask(), R"(##\ ##\ ##\.99999)");
    EXPECT_EQ(RADecFormat("HH\t+DDMM", kPoint).DecMask(), R"(&####\.999999)");
    EXPECT_EQ(RADecFormat("HH", kPoint).RAMask(), "");
}

} // namespace
} // namespace skyvert
