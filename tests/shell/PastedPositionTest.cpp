#include "notation/PastedPosition.h"

#include "controls/EntryMask.h"
#include "notation/RADecFormat.h"
#include "support/Table.h"

namespace skyvert::pasted_position_test {

const Locale kLocale;

RADecFormat formatOf(std::string_view ra, std::string_view dec) {
    RADecFormat format(kLocale);
    format.setRaFormat(ra);
    format.setDecFormat(dec);
    return format;
}

TEST(PastedPosition, OneCoordinateIsPutIntoTheShapeOfTheMaskWhereItsMeaningIsPlain) {
    for (const auto& [notation, pasted, fitted] : table<3>("pasted_coordinates")) {
        const RADecFormat format = formatOf(notation, notation);
        const std::string mask = notation[0] == '+' ? format.DecMask() : format.RAMask();
        EXPECT_EQ(fitToMask(pasted, mask).value_or("refused"), fitted) << notation << pasted;
    }
    EXPECT_FALSE(fitToMask(std::string(200, ' ') + "1", formatOf("", "+DD MM SS").DecMask()));
}

TEST(PastedPosition, APairIsCutWhereBothHalvesAreWhole) {
    for (const auto& [raNotation, decNotation, pasted, ra, dec] : table<5>("pasted_pairs")) {
        const RADecFormat format = formatOf(raNotation, decNotation);
        EXPECT_EQ(
            splitPosition(pasted, format.RAMask(), format.DecMask()).value_or(PositionTexts{}),
            (PositionTexts{ra, dec}))
            << raNotation << pasted;
    }
}

} // namespace skyvert::pasted_position_test
