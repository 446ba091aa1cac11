#include "notation/LookAlikes.h"
#include "platform/Unicode.h"
#include "support/Coordinates.h"
#include "support/Table.h"

#include <cmath>

namespace skyvert::parsing_test {

const Locale kComma{",", "."};

TEST(Parsing, GivesTheValueAndTheErrorOfEachText) {
    for (const auto& [coordinate, localised, notation, text, value, error] : table<6>("parsing")) {
        RADecFormat format(notation + "\t" + notation + "\t" + localised, kComma);
        std::string_view reported = "left over";
        const auto read = kCoordinates[coordinate == "Dec"].read;
        EXPECT_EQ((format.*read)(text, reported), number(value)) << notation << " <- " << text;
        EXPECT_EQ(reported, error) << text;
    }
    std::string_view error;
    for (const std::string_view zero : {"-", "-00 00 00"})
        EXPECT_TRUE(std::signbit(RADecFormat(kComma).ImportDec(zero, error)) && error.empty());
}

TEST(LookAlikes, AreReplacedByCharactersOfTheNotations) {
    std::string storage;
    for (const auto& [text, folded] : table<2>("folded_texts"))
        EXPECT_EQ(foldLookAlikes(text, storage), folded);
    const std::string_view ascii = "12 34 56";
    EXPECT_EQ(foldLookAlikes(ascii, storage).data(), ascii.data());
}

TEST(LookAlikes, AreExactlyTheListedRangesOfUnicode) {
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
    for (const auto& [first, last, meant] : table<3>("look_alikes")) {
        expectAll(std::stoul(first, nullptr, 16), nullptr);
        expectAll(std::stoul(last, nullptr, 16) + 1, &meant);
    }
    EXPECT_EQ(next, 0xE1000U);
    expectAll(0x110000, nullptr);
}

} // namespace skyvert::parsing_test
