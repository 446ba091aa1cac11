#include "notation/RADecFormat.h"

#include <gtest/gtest.h>

#include <limits>

// Tables stand several cases to a line.
// clang-format off

namespace skyvert {
namespace {

const Locale kComma{",", "."};

std::string renderRA(std::string_view notation, double hours, int decimals) {
    RADecFormat format(kComma);
    format.setRaFormat(notation);
    format.setRADecimals(decimals);
    return format.ExportRA(hours);
}

std::string renderDec(std::string_view notation, double degrees, int decimals) {
    RADecFormat format(kComma);
    format.setDecFormat(notation);
    format.setDecDecimals(decimals);
    return format.ExportDec(degrees);
}

TEST(Rendering, EveryNotationOfRightAscension) {
    struct Case { std::string_view notation, whole, twoDecimals; };
    const Case cases[] = {
        {"HH", "16", "15.79"}, {"HH MM", "15 47", "15 47.11"},
        {"HH MM SS", "15 47 06", "15 47 06.36"}, {"HHMM", "1547", "1547.11"},
        {"HHMMSS", "154706", "154706.36"}, {"hh:mm", "15:47", "15:47.11"},
        {"HH:MM:SS", "15:47:06", "15:47:06.36"}, {"HHhMMm", "15h47m", "15h47.11m"},
        {"HHhMMmSSs", "15h47m06s", "15h47m06.36s"}, {"DDD", "237", "236.78"},
        {"DDD MM", "236 47", "236 46.59"}, {"DDD MM SS", "236 46 35", "236 46 35.40"},
        {"DDDMM", "23647", "23646.59"}, {"DDDMMSS", "2364635", "2364635.40"},
        {"DDD:MM", "236:47", "236:46.59"}, {"DDD:MM:SS", "236:46:35", "236:46:35.40"},
        {"DDD°MM'", "236°47'", "236°46.59'"}, {"DDD°MM'SS\"", "236°46'35\"", "236°46'35.40\""},
        {"HH MM SS.S", "Unknown format!", "Unknown format!"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.notation);
        EXPECT_EQ(renderRA(c.notation, 15.7851, 0), c.whole);
        EXPECT_EQ(renderRA(c.notation, 15.7851, 2), c.twoDecimals);
    }
}

TEST(Rendering, EveryNotationOfDeclination) {
    struct Case { std::string_view notation, whole, twoDecimals, minusHalf; };
    const Case cases[] = {
        {"DD", "23", "22.68", "-0.5"}, {"+DD", "+23", "+22.68", "-0.5"},
        {"+DD MM", "+22 41", "+22 40.51", "-00 30.0"},
        {"+DD MM SS", "+22 40 30", "+22 40 30.36", "-00 30 00.0"},
        {"+DDMM", "+2241", "+2240.51", "-0030.0"},
        {"+DDMMSS", "+224030", "+224030.36", "-003000.0"},
        {"+dd:mm", "+22:41", "+22:40.51", "-00:30.0"},
        {"+DD:MM:SS", "+22:40:30", "+22:40:30.36", "-00:30:00.0"},
        {"+DD°MM'", "+22°41'", "+22°40.51'", "-00°30.0'"},
        {"+DD°MM'SS\"", "+22°40'30\"", "+22°40'30.36\"", "-00°30'00.0\""},
        {"DD MM", "Unknown format!", "Unknown format!", "Unknown format!"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.notation);
        EXPECT_EQ(renderDec(c.notation, 22.6751, 0), c.whole);
        EXPECT_EQ(renderDec(c.notation, 22.6751, 2), c.twoDecimals);
        EXPECT_EQ(renderDec(c.notation, -0.5, 1), c.minusHalf);
    }
}

TEST(Rendering, NothingIsCarriedWrappedOrLimitedAndTheSignIsThatOfTheWholeValue) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    struct Case { std::string_view notation; double value; int decimals; std::string_view text; };
    const Case rightAscensions[] = {
        {"HH MM", 12.99999, 2, "12 60.00"}, {"HH MM SS", 1.2, 2, "01 11 60.00"},
        {"HH MM SS", 12.999999, 0, "12 59 60"}, {"HH MM SS", 24, 0, "24 00 00"},
        {"DDD MM SS", 24, 0, "360 00 00"}, {"DDD MM SS", 0, 0, "000 00 00"}, {"HH", 0, 0, "0"},
        {"HH", 5.5, 1, "5.5"}, {"HH MM", 1e15, 0, "1000000000000000 00"},
        {"HH MM SS", infinity, 2, "inf nan nan"},
    };
    const Case declinations[] = {
        {"+DD MM", 12.99999, 2, "+12 60.00"}, {"+DD MM SS", 90, 0, "+90 00 00"},
        {"+DD", 100.5, 1, "+100.5"}, {"+DD", -infinity, 0, "-inf"}, {"+DD", -0.0001, 1, "-0.0"},
        {"+DD MM SS", -0.5, 0, "-00 30 00"}, {"+DD MM SS", -0.0, 0, "+00 00 00"},
        {"DD", -0.0, 0, "0"}, {"DD", -0.04, 1, "-0.0"}, {"DD", -0.04, 0, "0"},
    };
    for (const Case& c : rightAscensions)
        EXPECT_EQ(renderRA(c.notation, c.value, c.decimals), c.text);
    for (const Case& c : declinations)
        EXPECT_EQ(renderDec(c.notation, c.value, c.decimals), c.text);
}

TEST(Rendering, LocalesSeparatorStandsInTheLastFieldAndTextIsAppended) {
    RADecFormat format("HH:MM:SS\t+DD°MM'\tY\t2\t1", kComma);
    std::string text = "RA ";
    format.appendRA(15.7851, text);
    format.appendDec(-0.5, text);
    EXPECT_EQ(text, "RA 15:47:06,36-00°30,0'");
}

} // namespace
} // namespace skyvert
