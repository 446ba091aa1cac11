#include "notation/RADecFormat.h"
#include "support/CountingAllocator.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

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

TEST(Rendering, EveryNotationOfRightAscensionInTheOrderOffered) {
    struct Case { std::string_view notation, whole, twoDecimals, mask; };
    const Case cases[] = {
        {"HH", "16", "15.79", ""}, {"HH MM", "15 47", "15 47.11", R"(##\ ##.99999)"},
        {"HH MM SS", "15 47 06", "15 47 06.36", R"(##\ ##\ ##.99999)"},
        {"HHMM", "1547", "1547.11", "####.999999"},
        {"HHMMSS", "154706", "154706.36", "######.999999"},
        {"HH:MM", "15:47", "15:47.11", R"(##\:##.99999)"},
        {"HH:MM:SS", "15:47:06", "15:47:06.36", R"(##\:##\:##.99999)"},
        {"HHhMMm", "15h47m", "15h47.11m", R"(##\h##.999999)"},
        {"HHhMMmSSs", "15h47m06s", "15h47m06.36s", R"(##\h##\m##.999999)"},
        {"DDD", "237", "236.78", ""}, {"DDD MM", "236 47", "236 46.59", R"(###\ ##.99999)"},
        {"DDD MM SS", "236 46 35", "236 46 35.40", R"(###\ ##\ ##.99999)"},
        {"DDDMM", "23647", "23646.59", "#####.999999"},
        {"DDDMMSS", "2364635", "2364635.40", "#######.999999"},
        {"DDD:MM", "236:47", "236:46.59", R"(###\:##.99999)"},
        {"DDD:MM:SS", "236:46:35", "236:46:35.40", R"(###\:##\:##.99999)"},
        {"DDD°MM'", "236°47'", "236°46.59'", R"(###\°##.999999)"},
        {"DDD°MM'SS\"", "236°46'35\"", "236°46'35.40\"", R"(###\°##\'##.999999)"},
    };
    RADecFormat::SupportedRAFormats().clear(); // the caller's own
    const std::vector<std::string> offered = RADecFormat::SupportedRAFormats();
    ASSERT_EQ(offered.size(), std::size(cases));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.notation);
        EXPECT_EQ(offered[static_cast<std::size_t>(&c - cases)], c.notation);
        EXPECT_EQ(renderRA(c.notation, 15.7851, 0), c.whole);
        EXPECT_EQ(renderRA(c.notation, 15.7851, 2), c.twoDecimals);
        EXPECT_EQ(RADecFormat(std::string(c.notation) + "\t\tY", kComma).RAMask(), c.mask);
    }
    EXPECT_EQ(RADecFormat("hh mm", kComma).RAMask(), R"(##\ ##\.99999)") << "not localised";
    EXPECT_EQ(renderRA("hh:mm", 15.7851, 0), "15:47");
    EXPECT_EQ(renderRA("HH MM SS.S", 1.0, 0), "Unknown format!");
    EXPECT_EQ(RADecFormat("none\tnone", kComma).RAMask(), "");
}

TEST(Rendering, EveryNotationOfDeclinationInTheOrderOffered) {
    struct Case { std::string_view notation, whole, twoDecimals, minusHalf, mask; };
    const Case cases[] = {
        {"DD", "23", "22.68", "-0.5", ""}, {"+DD", "+23", "+22.68", "-0.5", ""},
        {"+DD MM", "+22 41", "+22 40.51", "-00 30.0", R"(&##\ ##.99999)"},
        {"+DD MM SS", "+22 40 30", "+22 40 30.36", "-00 30 00.0", R"(&##\ ##\ ##.99999)"},
        {"+DDMM", "+2241", "+2240.51", "-0030.0", "&####.999999"},
        {"+DDMMSS", "+224030", "+224030.36", "-003000.0", "&######.999999"},
        {"+DD:MM", "+22:41", "+22:40.51", "-00:30.0", R"(&##\:##.99999)"},
        {"+DD:MM:SS", "+22:40:30", "+22:40:30.36", "-00:30:00.0", R"(&##\:##\:##.99999)"},
        {"+DD°MM'", "+22°41'", "+22°40.51'", "-00°30.0'", R"(&##\°##.999999)"},
        {"+DD°MM'SS\"", "+22°40'30\"", "+22°40'30.36\"", "-00°30'00.0\"", R"(&##\°##\'##.999999)"},
    };
    const std::vector<std::string> offered = RADecFormat::SupportedDecFormats();
    ASSERT_EQ(offered.size(), std::size(cases));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.notation);
        EXPECT_EQ(offered[static_cast<std::size_t>(&c - cases)], c.notation);
        EXPECT_EQ(renderDec(c.notation, 22.6751, 0), c.whole);
        EXPECT_EQ(renderDec(c.notation, 22.6751, 2), c.twoDecimals);
        EXPECT_EQ(renderDec(c.notation, -0.5, 1), c.minusHalf);
        EXPECT_EQ(RADecFormat("\t" + std::string(c.notation) + "\tY", kComma).DecMask(), c.mask);
    }
    EXPECT_EQ(RADecFormat("\t+ddmm", kComma).DecMask(), R"(&####\.999999)") << "not localised";
    EXPECT_EQ(renderDec("DD MM", 1.0, 0), "Unknown format!");
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

TEST(Rendering, ShortRoadRoundsAsTheCLibraryDoes) {
    std::mt19937_64 random(1); // the same values in every run
    for (int i = 0; i < 20'000; ++i) {
        // Sixteenths and hundredths of a second meet ties, at them and a hair beside them.
        const double steps = i % 2 == 0 ? 16.0 : 100.0;
        const double hours = static_cast<double>(random() % 8'640'000) / (3600.0 * steps);
        const double minutes = (hours - std::floor(hours)) * 60.0;
        const double seconds = (minutes - std::floor(minutes)) * 60.0;
        const int decimals = static_cast<int>(random() % 9) + 1;
        std::array<char, 64> expected;
        std::snprintf(expected.data(), expected.size(), "%02.0f %02.0f %0*.*f", std::floor(hours),
                      std::floor(minutes), decimals + 3, decimals, seconds);
        ASSERT_EQ(renderRA("HH MM SS", hours, decimals), expected.data()) << hours;
    }
}

TEST(Rendering, LocalesSeparatorStandsInTheLastField) {
    const RADecFormat format("HH:MM:SS\t+DD°MM'\tY\t2\t1", kComma);
    EXPECT_EQ(format.ExportRA(15.7851) + format.ExportDec(-0.5), "15:47:06,36-00°30,0'");
}

TEST(Rendering, OneRowOfAListTakesNoMemory) {
    const RADecFormat format("HH MM SS\t+DD MM SS\tN\t2\t1", kComma);
    std::array<char, 2 * RADecFormat::kMaxText> cells;
    const auto renderRow = [&](std::string_view ra, std::string_view dec) {
        std::string_view error;
        char* const end = format.writeRA(format.ImportRA(ra, error), cells.data());
        return std::string_view(cells.data(), format.writeDec(format.ImportDec(dec, error), end));
    };
    renderRow("0", "0"); // learns the separator
    const std::size_t before = allocationCount();
    EXPECT_EQ(renderRow("12 34 56.78", "-01 02 03.4"), "12 34 56.78-01 02 03.4");
    EXPECT_EQ(renderRow(" 12   34", "x"), "00 12 00.00+00 00 00.0");
    EXPECT_EQ(allocationCount(), before);
}

} // namespace
} // namespace skyvert
