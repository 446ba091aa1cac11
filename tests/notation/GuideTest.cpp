#include "platform/Files.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <regex>

namespace skyvert::guide_test {

TEST(Guide, ShowsWhatEachNotationWritesAndReads) {
    const std::string guide = readWholeFile(SKYVERT_TEST_DATA "/../../docs/guide.md").value();
    const std::regex quoted("`([^`]*)`");
    const Locale locale;
    RADecFormat format("\t\tN\t2\t2", locale);
    std::string_view error;
    for (const auto& [name, notations, select, read, write, mask] : kCoordinates)
        for (const std::string& notation : notations()) {
            (format.*select)(notation);
            const double written = name == "RA" ? 15.7851 : 22.6751;
            const std::string example = (format.*write)(written);
            const double value = (format.*read)(example, error);
            EXPECT_NEAR(value, written, 0.0051) << notation;
            const std::size_t begin = guide.find("| `" + notation + "` | `" + example + "` |");
            ASSERT_NE(begin, std::string::npos) << notation << " " << example;
            const std::string row = guide.substr(begin, guide.find('\n', begin) - begin);
            std::sregex_token_iterator text(row.begin(), row.end(), quoted, 1);
            while (++text != std::sregex_token_iterator()) {
                EXPECT_NEAR((format.*read)(text->str(), error), value, 1e-9) << *text;
                EXPECT_EQ(error, "") << *text;
            }
        }
}

} // namespace skyvert::guide_test
