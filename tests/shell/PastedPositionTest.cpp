#include "notation/PastedPosition.h"
#include "notation/RADecFormat.h"
#include "controls/EntryMask.h"

#include <gtest/gtest.h>

namespace skyvert::pasted_position_test {

const Locale kLocale;

RADecFormat formatOf(std::string_view ra, std::string_view dec) {
    RADecFormat format(kLocale);
    format.setRaFormat(ra);
    format.setDecFormat(dec);
    return format;
}

TEST(PastedPosition, OneCoordinateIsPutIntoTheShapeOfTheMaskWhereItsMeaningIsPlain) {
    const std::array<const char*, 3> cases[] = {
        {"HH MM SS", "05:34:31.97", "05 34 31.97"}, {"HH MM SS", "05h34m31.97s", "05 34 31.97"},
        {"HH MM SS", " 5H 34M 31,97 S", "05 34 31,97"}, {"HH MM SS", "05h34m31s.97", "05 34 31.97"},
        {"HH MM SS", "053431.97", "05 34 31.97"}, {"HH MM SS", "05 34 31.123456789", "05 34 31.12345"},
        {"HH MM SS", "05h34m", "05 34"}, {"HH MM SS", "05:34.5", "refused"}, {"HH MM SS", "05:", "05"},
        {"HH MM SS", "83d38m07s", "refused"}, {"HH MM SS", "183:38:07", "refused"}, {"HH MM SS", "-5:34:31", "refused"},
        {"HH MM SS", "05:34:31:97", "refused"}, {"HH MM SS", "M 1", "refused"}, {"HH MM SS", "34m31.97s", "refused"},
        {"HH MM SS", "05:34:31.97.5", "refused"}, {"HH MM SS", "", "refused"}, {"HH MM", "05:34:31.97", "refused"},
        {"HHMMSS", "5:34:31.1234567", "053431.123456"}, {"HHMMSS", "053431.1234567", "053431.123456"},
        {"HHhMMm", "05:34.5", "05h34.5"}, {"DDDMM", "83°38.1'", "08338.1"}, {"DDD°MM'SS\"", "083 38 07.5", "083°38'07.5"},
        {"DDD MM", "5h34m", "refused"}, {"HH", "05:34", "refused"}};
    for (const auto& [notation, pasted, fitted] : cases)
        EXPECT_EQ(fitToMask(pasted, formatOf(notation, "DD").RAMask()).value_or("refused"), fitted) << notation << pasted;
    const std::string dec = formatOf("HH", "+DD MM SS").DecMask();
    EXPECT_EQ(fitToMask("-22°00'52.1''", dec), "-22 00 52.1");
    EXPECT_EQ(fitToMask("22d00m52.1s", dec), "22 00 52.1");
    EXPECT_EQ(fitToMask("22h00m52.1s", dec), std::nullopt);
    EXPECT_EQ(fitToMask(std::string(200, ' ') + "1", dec), std::nullopt);
}

TEST(PastedPosition, APairIsCutWhereBothHalvesAreWhole) {
    const std::array<const char*, 5> cases[] = {
        {"HH MM SS", "+DD MM SS", "05 34 31.97 +22 00 52.1", "05 34 31.97", "+22 00 52.1"},
        {"HH MM SS", "+DD:MM:SS", "05h34m31.97s, 22d00m52.1s", "05 34 31.97", "+22:00:52.1"},
        {"HH MM SS", "+DD MM SS", "05 34 31,97 22 00 52,1", "05 34 31,97", "+22 00 52,1"},
        {"HH:MM:SS", "+DD MM SS", "05:34:31.97\t-00:00:52.1", "05:34:31.97", "-00 00 52.1"},
        {"HHMMSS", "+DDMMSS", "053431.97-220052.1", "053431.97", "-220052.1"},
        {"HHMM", "+DDMM", "0534;2200", "0534", "+2200"}, {"HH MM", "+DD MM", "05 34,22 00", "05 34", "+22 00"},
        {"HH", "+DD", "5.57 22.014", "5.57", "+22.014"}, {"DDD", "DD", "83.63308,-5", "83.63308", "-5"},
        {"HH", "DD", "15 47.11", "", ""}, {"HH MM", "DD", "05 34 22", "", ""}, {"HH MM", "+DD MM", "05 34 22", "", ""},
        {"HH MM SS", "+DD MM SS", "05 34 31.97 +22 00", "", ""}, {"HH MM SS", "+DD MM SS", "05 34 31.97", "", ""},
        {"HH MM", "+DD MM", "12 30\t+10 15\t12 31\t+10 06", "", ""}};
    for (const auto& [raNotation, decNotation, pasted, ra, dec] : cases) {
        const RADecFormat format = formatOf(raNotation, decNotation);
        EXPECT_EQ(splitPosition(pasted, format.RAMask(), format.DecMask()).value_or(PositionTexts{}),
                  (PositionTexts{ra, dec})) << raNotation << pasted;
    }
}

} // namespace skyvert::pasted_position_test
