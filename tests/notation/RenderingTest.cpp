#include "support/Coordinates.h"
#include "support/Table.h"

namespace skyvert::rendering_test {

const Locale kComma{",", "."};

TEST(Rendering, IsThatOfTheTable) {
    for (const auto& [coordinate, notation, value, decimals, text] : table<5>("rendering")) {
        const RADecFormat format(notation + "\t" + notation + "\tN\t" + decimals + "\t" + decimals,
                                 kComma);
        const Coordinate& kind = kCoordinates[coordinate == "Dec"];
        EXPECT_EQ((format.*kind.write)(number(value)), text) << notation;
    }
    EXPECT_EQ(RADecFormat("HH:MM:SS\t\tY\t2", kComma).ExportRA(15.7851), "15:47:06,36");
}

TEST(Rendering, NotationsAreOfferedInTheirOrderWithTheirMasks) {
    std::vector<std::array<std::string, 3>> offered;
    for (const auto& [name, notations, select, read, write, mask] : kCoordinates)
        for (const std::string& notation : notations()) {
            RADecFormat format("\t\tY", kComma);
            (format.*select)(notation);
            offered.push_back({std::string(name), notation, (format.*mask)()});
        }
    EXPECT_EQ(offered, table<3>("notations"));
    EXPECT_EQ(RADecFormat("hh mm", kComma).RAMask(), R"(##\ ##\.99999)") << "not localised";
    EXPECT_EQ(RADecFormat("\t+ddmm", kComma).DecMask(), R"(&####\.999999)") << "not localised";
    EXPECT_EQ(RADecFormat("none\tnone", kComma).RAMask(), "");
}

} // namespace skyvert::rendering_test
