#include "notation/RADecFormat.h"

#include <gtest/gtest.h>

namespace skyvert::rendering_test {

const Locale kComma{",", "."};

/// A coordinate in a notation, with these decimals.
std::string render(std::string (RADecFormat::*write)(double) const, const std::string& notation,
                   double value, int decimals) {
    const std::string rest = "\tN\t" + std::to_string(decimals) + "\t" + std::to_string(decimals);
    return (RADecFormat(notation + "\t" + notation + rest, kComma).*write)(value);
}

constexpr auto kRA = &RADecFormat::ExportRA;
constexpr auto kDec = &RADecFormat::ExportDec;

TEST(Rendering, EveryNotationOfRightAscensionInTheOrderOffered) {
    const std::array<std::string, 4> cases[] = {
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
        {"DDD°MM'SS\"", "236°46'35\"", "236°46'35.40\"", R"(###\°##\'##.999999)"}};
    const std::vector<std::string> offered = RADecFormat::SupportedRAFormats();
    ASSERT_EQ(offered.size(), std::size(cases));
    for (std::size_t i = 0; i < offered.size(); ++i)
        EXPECT_EQ(cases[i], (std::array{offered[i], render(kRA, offered[i], 15.7851, 0),
                                        render(kRA, offered[i], 15.7851, 2),
                                        RADecFormat(offered[i] + "\t\tY", kComma).RAMask()}));
    EXPECT_EQ(RADecFormat("hh mm", kComma).RAMask(), R"(##\ ##\.99999)") << "not localised";
    EXPECT_EQ(render(kRA, "hh:mm", 15.7851, 0), "15:47");
    EXPECT_EQ(render(kRA, "HH MM SS.S", 1.0, 0), "Unknown format!");
    EXPECT_EQ(RADecFormat("none\tnone", kComma).RAMask(), "");
    EXPECT_EQ(RADecFormat("HH:MM:SS\t\tY\t2", kComma).ExportRA(15.7851), "15:47:06,36");
}

TEST(Rendering, EveryNotationOfDeclinationInTheOrderOffered) {
    const std::array<std::string, 5> cases[] = {
        {"DD", "23", "22.68", "-0.5", ""}, {"+DD", "+23", "+22.68", "-0.5", ""},
        {"+DD MM", "+22 41", "+22 40.51", "-00 30.0", R"(&##\ ##.99999)"},
        {"+DD MM SS", "+22 40 30", "+22 40 30.36", "-00 30 00.0", R"(&##\ ##\ ##.99999)"},
        {"+DDMM", "+2241", "+2240.51", "-0030.0", "&####.999999"},
        {"+DDMMSS", "+224030", "+224030.36", "-003000.0", "&######.999999"},
        {"+DD:MM", "+22:41", "+22:40.51", "-00:30.0", R"(&##\:##.99999)"},
        {"+DD:MM:SS", "+22:40:30", "+22:40:30.36", "-00:30:00.0", R"(&##\:##\:##.99999)"},
        {"+DD°MM'", "+22°41'", "+22°40.51'", "-00°30.0'", R"(&##\°##.999999)"},
        {"+DD°MM'SS\"", "+22°40'30\"", "+22°40'30.36\"", "-00°30'00.0\"", R"(&##\°##\'##.999999)"}};
    const std::vector<std::string> offered = RADecFormat::SupportedDecFormats();
    ASSERT_EQ(offered.size(), std::size(cases));
    for (std::size_t i = 0; i < offered.size(); ++i)
        EXPECT_EQ(cases[i],
                  (std::array{offered[i], render(kDec, offered[i], 22.6751, 0),
                              render(kDec, offered[i], 22.6751, 2), render(kDec, offered[i], -0.5, 1),
                              RADecFormat("\t" + offered[i] + "\tY", kComma).DecMask()}));
    EXPECT_EQ(RADecFormat("\t+ddmm", kComma).DecMask(), R"(&####\.999999)") << "not localised";
    EXPECT_EQ(render(kDec, "DD MM", 1.0, 0), "Unknown format!");
}

TEST(Rendering, NothingIsCarriedWrappedOrLimitedAndTheSignIsThatOfTheWholeValue) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    using Case = std::tuple<const char*, double, int, const char*>;
    const Case rightAscensions[] = {
        {"HH MM", 12.99999, 2, "12 60.00"}, {"HH MM SS", 1.2, 2, "01 11 60.00"},
        {"HH MM SS", 12.999999, 0, "12 59 60"}, {"HH MM SS", 24, 0, "24 00 00"}, {"HH MM", 123.5, 0, "123 30"},
        {"DDD MM SS", 24, 0, "360 00 00"}, {"DDD MM SS", 0, 0, "000 00 00"}, {"HH", 0, 0, "0"},
        {"HH", 5.5, 1, "5.5"}, {"HH MM", 1e15, 0, "1000000000000000 00"},
        {"HH MM SS", infinity, 2, "inf nan nan"}};
    const Case declinations[] = {
        {"+DD MM", 12.99999, 2, "+12 60.00"}, {"+DD MM SS", 90, 0, "+90 00 00"},
        {"+DD", 100.5, 1, "+100.5"}, {"+DD", -infinity, 0, "-inf"}, {"+DD", -0.0001, 1, "-0.0"},
        {"+DD MM SS", -0.5, 0, "-00 30 00"}, {"+DD MM SS", -0.0, 0, "+00 00 00"},
        {"DD", -0.0, 0, "0"}, {"DD", -0.04, 1, "-0.0"}, {"DD", -0.04, 0, "0"},
        {"+DD", 2.5, 0, "+3"}, {"DD", -2.5, 0, "-3"}};
    for (const auto& [notation, value, decimals, text] : rightAscensions)
        EXPECT_EQ(render(kRA, notation, value, decimals), text);
    for (const auto& [notation, value, decimals, text] : declinations)
        EXPECT_EQ(render(kDec, notation, value, decimals), text);
}

} // namespace skyvert::rendering_test
