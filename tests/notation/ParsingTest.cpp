#include "notation/LookAlikes.h"
#include "notation/RADecFormat.h"
#include "platform/Unicode.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <span>

namespace skyvert::parsing_test {

const Locale kComma{",", "."};

constexpr std::string_view kHours = "Hours must be non-negative and less than 24";
constexpr std::string_view kDegrees = "Degrees must be non-negative and less than 360";
constexpr std::string_view kMinutes = "Minutes must be non-negative and less than 60";
constexpr std::string_view kSeconds = "Seconds must be non-negative and less than 60";
constexpr std::string_view kSum = "Value must be non-negative and less than 24";
constexpr std::string_view kDecDegrees = "Degrees must be between -90 and +90";
constexpr std::string_view kDecSum = "Value must be between -90 and +90 degrees";

struct Case {
    std::string_view notation, text;
    double value;
    std::string_view error = "";
};

using Import = double (RADecFormat::*)(std::string_view, std::string_view&) const;

/// Reads each text with its notation set for right ascension and declination alike.
void checkCases(std::span<const Case> cases, Import import, bool localised = false) {
    for (const Case& c : cases) {
        RADecFormat format(kComma);
        format.setRaFormat(c.notation);
        format.setDecFormat(c.notation);
        format.setLocalised(localised);
        std::string_view error = "left over";
        EXPECT_EQ((format.*import)(c.text, error), c.value) << c.notation << " <- " << c.text;
        EXPECT_EQ(error, c.error) << c.text;
    }
}

TEST(Parsing, RightAscension) {
    const double h12m34 = 34.0 / 60.0 + 12.0;
    const double h12m34s56 = h12m34 + 56.0 / 3600.0;
    const Case cases[] = {
        {"HH MM SS", "12 34 56.7", 12.582416666666667}, {"HH MM SS", "12 34", h12m34},
        {"hh mm", "12 34 56", h12m34s56}, {"HH:MM", "12:34:56", h12m34s56},
        {"HH MM SS", "12  34", h12m34}, {"HH MM SS", "12   34", 12.0 + 34.0 / 3600.0},
        {"HH MM SS", " 12 34", 12.0 / 60.0 + 34.0 / 3600.0},
        {"HH MM SS", "1 2 3 99", 2.0 / 60.0 + 1.0 + 3.0 / 3600.0}, {"HH MM", "12.5 30", 13.0},
        {"HH", "12 34", 12.0}, {"HH", "abc", 0.0}, {"HH", "23.999", 23.999},
        {"HH", "24", 24.0, kHours}, {"HH MM SS", "-1 00 00", -1.0, kHours}, {"HH MM", "12 -6", -6.0 / 60.0 + 12.0, kMinutes},
        {"HH MM SS", "12 30 -36", 30.0 / 60.0 + 12.0 + -36.0 / 3600.0, kSeconds},
        {"HH MM SS", "23 60 00", 24.0, kMinutes}, {"HH MM SS", "23 59 60", 24.0, kSeconds},
        {"HH MM SS", "25 61 61", 61.0 / 60.0 + 25.0 + 61.0 / 3600.0, kHours},
        {"HH MM SS", "23 59 59.9999999999999", 24.0, kSum}, {"DDD", "360", 24.0, kDegrees},
        {"DDD", "359.9", 359.9 / 15.0}, {"DDD MM SS", "180 30 00", 12.033333333333333},
        {"DDD MM SS", "100 60 00", 4.0 / 60.0 + 100.0 / 15.0, kMinutes},
        {"DDD MM SS", "100 00 60", 100.0 / 15.0 + 4.0 / 3600.0, kSeconds}, {"HHMM", "1234", h12m34},
        {"HHMMSS", "123456.7", 12.582416666666667}, {"HHMM", "123", 3.0 / 60.0 + 12.0},
        {"HHMM", " 1234", 234.0 / 60.0, kMinutes},
        {"DDDMM", "23646.5", 46.5 / 15.0 / 60.0 + 236.0 / 15.0},
        {"DDDMMSS", "1803000", 12.033333333333333}, {"HHhMMmSSs", "12h34m56s", h12m34s56},
        {"HHhMMmSSs", "12H34M56S", h12m34s56}, {"HHhMMmSSs", "12 h 34 m", h12m34},
        {"HHhMMmSSs", "s12h34m56s", h12m34s56}, {"HHhMMmSSs", "12h34h56", h12m34},
        {"HHhMMmSSs", "12m34", h12m34}, {"HHhMMm", "12h34.5", 34.5 / 60.0 + 12.0},
        {"HHhMMm", "12:34", h12m34}, {"DDD°MM'", "180±30", 12.0},
        {"DDD°MM'", "236°46'35\"", (46.0 / 15.0 / 60.0 + 236.0 / 15.0) + 35.0 / 15.0 / 3600.0},
        {"DDD°MM'SS\"", "236 ° 46 '", 46.0 / 15.0 / 60.0 + 236.0 / 15.0},
        {"HH:MM", "1 2 : 3 4", h12m34}, {"HH:MM:SS", "::36", 0.01},
        {"HH", " \t\r\n", 0.0, "No data!"}, {"none", " ", 0.0, "No data!"},
        {"none", "12", -999.0, "Bad format!"}};
    checkCases(cases, &RADecFormat::ImportRA);
}

TEST(Parsing, Declination) {
    const Case cases[] = {
        {"+DD MM SS", "-00 30 00", -0.5}, {"+DD MM SS", "-12 30 15", -12.504166666666666},
        {"DD", "90", 90.0}, {"DD", "+5", 5.0}, {"+DD", "5", 5.0}, {"+DD MM SS", "+90 00 00", 90.0},
        {"+DD MM SS", "-90 00 00", -90.0}, {"DD", "90.0001", 90.0001, kDecDegrees},
        {"+DD MM SS", "90 00 01", 90.00027777777778, kDecSum},
        {"+DD MM SS", "-90 30 00", -90.5, kDecSum},
        {"+DD MM SS", "91 61 61", 61.0 / 60.0 + 91.0 + 61.0 / 3600.0, kDecDegrees},
        {"+DD MM SS", "45 60 00", 46.0, kMinutes},
        {"+DD MM SS", "45 00 60", 45.0 + 60.0 / 3600.0, kSeconds}, {"DD", "--5", 5.0, kDecDegrees},
        {"+DD MM", " -12 30", -12.0 / 60.0 + 30.0 / 3600.0, kMinutes}, {"+dd:mm", "- 12:30", -12.5},
        {"+DD MM", "- 12 30", -0.20833333333333334}, {"+DDMM", "+2240.51", 40.51 / 60.0 + 22.0},
        {"+DDMM", "2240.51", 40.51 / 60.0 + 22.0},
        {"+DDMMSS", "-224030.36", -((40.0 / 60.0 + 22.0) + 30.36 / 3600.0)},
        {"+DD°MM'", "22°40'30\"", 40.0 / 60.0 + 22.0 + 30.0 / 3600.0},
        {"+DD°MM'SS\"", "+22°40'", 40.0 / 60.0 + 22.0}, {"none", "", 0.0, "No data!"},
        {"none", "-", -999.0, "Bad format!"}};
    checkCases(cases, &RADecFormat::ImportDec);
    std::string_view error;
    for (const std::string_view zero : {"-", "-00 00 00"})
        EXPECT_TRUE(std::signbit(RADecFormat(kComma).ImportDec(zero, error)) && error.empty());
}

TEST(Parsing, CommaPassesThroughEveryMethodOfALocalisedFormat) {
    const Case cases[] = {
        {"HH", "12,5", 12.5}, {"HH", "12.5", 12.0}, {"HH MM", "12 30,5", 30.5 / 60.0 + 12.0},
        {"HH:MM", "12: 30,5", 30.5 / 60.0 + 12.0}, {"HHhMMm", "12h30,5m", 30.5 / 60.0 + 12.0},
        {"HHMM", "1230,5", 30.5 / 60.0 + 12.0}, {"HH:MM:SS", "12:30:1.800,0", 13.0, kSeconds}, {"DDD°MM'", "180°30,0'", 30.0 / 15.0 / 60.0 + 12.0},
    };
    checkCases(cases, &RADecFormat::ImportRA, true);
}

TEST(LookAlikes, AreReadAsTheCharactersOfANotation) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"−22º40′30″", "-22°40'30\""}, {"−22 40 30.2500000", "-22 40 30.2500000"}, {"22°40'", "22°40'"},
        {"12ʰ34ᵐ\u200B56ˢ", "12h34m56s"},
        {"\xE2\x88 \xFFé\xC2", "\xE2\x88 \xFFé\xC2"}, {"", ""}};
    std::string storage;
    for (const auto& [text, folded] : cases)
        EXPECT_EQ(foldLookAlikes(text, storage), folded);
    const std::string_view ascii = "12 34 56";
    EXPECT_EQ(foldLookAlikes(ascii, storage).data(), ascii.data());
}

TEST(LookAlikes, AreTheFamiliesOfUnicodeAndNothingElse) {
    std::ifstream data(SKYVERT_TEST_DATA "/look_alikes.tsv");
    unsigned long next = 0x80;
    std::string storage;
    const auto expectAll = [&](unsigned long end, const std::string* meant) {
        for (; next < end; ++next) {
            std::string character;
            const auto point = static_cast<char32_t>(next);
            appendUtf8(isSurrogate(point) ? kReplacementCharacter : point, character);
            ASSERT_EQ(foldLookAlikes(character, storage), meant ? *meant : character) << next;
        }
    };
    for (std::string first, last, meant; std::getline(data, first, '\t') && std::getline(data, last, '\t') && std::getline(data, meant);) {
        expectAll(std::stoul(first, nullptr, 16), nullptr);
        expectAll(std::stoul(last, nullptr, 16) + 1, &meant);
    }
    EXPECT_EQ(next, 0xE1000U);
    expectAll(0x110000, nullptr);
}

} // namespace skyvert::parsing_test
