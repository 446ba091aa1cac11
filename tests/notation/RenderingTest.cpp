#include "support/Coordinates.h"
#include "support/Table.h"

namespace skyvert::rendering_test {

const Locale kComma{",", "."};

TEST(Rendering, WritesEachValueAsInTheTable) {
    for (const auto& [coordinate, notation, value, decimals, text] : table<5>("rendering")) {
        const RADecFormat format(notation + "\t" + notation + "\tN\t" + decimals + "\t" + decimals,
                                 kComma);
        const Coordinate& kind = kCoordinates[coordinate == "Dec"];
        EXPECT_EQ((format.*kind.write)(number(value)), text) << notation;
    }
    EXPECT_EQ(RADecFormat("HH:MM:SS\t\tY\t2", kComma).ExportRA(15.7851), "15:47:06,36");
}

TEST(Rendering, NotationsAreOfferedInOrderWithTheirMasks) {
    std::vector<std::array<std::string, 4>> offered;
    for (const auto& [name, notations, select, read, write, mask] : kCoordinates)
        for (const std::string& notation : notations()) {
            RADecFormat format("\t\tY", kComma);
            (format.*select)(notation);
            const std::string shape = (format.*mask)();
            const std::string_view closing = RADecFormat::closingMark(shape);
            offered.push_back({std::string(name), notation, shape, std::string(closing)});
        }
    EXPECT_EQ(offered, table<4>("notations"));
    EXPECT_EQ(RADecFormat("hh mm", kComma).RAMask(), R"(##\ ##\.99999)") << "not localised";
    EXPECT_EQ(RADecFormat("\t+ddmm", kComma).DecMask(), R"(&####\.999999)") << "not localised";
    EXPECT_EQ(RADecFormat::closingMark(R"(##\h##\.999999)"), "m") << "not localised";
    EXPECT_EQ(RADecFormat("none\tnone", kComma).RAMask(), "");
}

TEST(RADecFormat, TextFormIsReadFieldByField) {
    for (const auto& [text, written] : table<2>("format_texts"))
        for (const std::string_view read : {text, written})
            EXPECT_EQ(RADecFormat(read, kComma).AsString(), written);
}

TEST(RADecFormat, TheLocalesSeparatorIsWrittenAndReadOnlyWhenLocalised) {
    Locale locale = kComma;
    RADecFormat format(locale);
    EXPECT_EQ(format.DoubleToStr(12.5, 0, 2), "13");
    EXPECT_EQ(format.decpt(), "");
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12.50");
    EXPECT_EQ(format.decpt(), ",");
    EXPECT_EQ(format.StrToDbl("12,5"), 12.0);
    // A format that has read the separator keeps it, though the locale changes.
    locale.decimalPoint = "\u066B";
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12\u066B50");
    EXPECT_EQ(RADecFormat(locale).DoubleToStr(12.5, 2, 2), "12.50");
    format.setLocalised(true);
    EXPECT_EQ(format.DoubleToStr(12.5, 2, 2), "12\u066B50");
    EXPECT_EQ(format.StrToDbl("12\u066B5"), 12.5);
    EXPECT_EQ(format.StrToDbl("12.500"), 12500.0);
}

} // namespace skyvert::rendering_test
