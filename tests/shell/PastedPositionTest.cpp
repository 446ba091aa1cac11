#include "notation/PastedPosition.h"

#include "notation/RADecFormat.h"
#include "support/Table.h"

namespace skyvert::pasted_position_test {

const Locale kLocale;

TEST(PastedPosition, ACoordinateIsFittedToTheMaskWhereItsMeaningIsPlain) {
    for (const auto& [notation, pasted, fitted] : table<3>("pasted_coordinates")) {
        const RADecFormat format(notation + "\t" + notation, kLocale);
        const std::string mask = notation[0] == '+' ? format.DecMask() : format.RAMask();
        EXPECT_EQ(fitToMask(pasted, mask).value_or("refused"), fitted) << notation << pasted;
    }
    EXPECT_FALSE(fitToMask(std::string(200, ' ') + "1", RADecFormat(kLocale).DecMask()));
}

TEST(PastedPosition, APairIsSplitWhereBothHalvesAreComplete) {
    for (const auto& [raNotation, decNotation, pasted, ra, dec] : table<5>("pasted_pairs")) {
        const RADecFormat format(raNotation + "\t" + decNotation, kLocale);
        EXPECT_EQ(
            splitPosition(pasted, format.RAMask(), format.DecMask()).value_or(PositionTexts{}),
            (PositionTexts{ra, dec}))
            << raNotation << pasted;
    }
}

} // namespace skyvert::pasted_position_test
