#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>

namespace skyvert::guide_test {

/// The texts between backquotes in each row of the guide's table under a heading: notation,
/// example, other texts that read alike.
std::vector<std::vector<std::string>> tableOfGuide(const std::string& heading) {
    static const std::regex pattern("`([^`]*)`");
    std::ifstream guide(SKYVERT_TEST_DATA "/../../docs/guide.md");
    std::vector<std::vector<std::string>> rows;
    std::string line;
    while (line.find(heading) == std::string::npos && std::getline(guide, line))
        ;
    while (std::getline(guide, line) && line.starts_with('|'))
        if (line.starts_with("| `"))
            rows.emplace_back(std::sregex_token_iterator(line.begin(), line.end(), pattern, 1),
                              std::sregex_token_iterator());
    return rows;
}

TEST(Guide, ItsTablesOfNotationsShowWhatTheProgramWritesAndReads) {
    const Locale locale;
    RADecFormat format("\t\tN\t2\t2", locale);
    std::string_view error;
    for (const auto& [name, notations, select, read, write, mask] : kCoordinates) {
        const auto rows = tableOfGuide(name == "RA" ? "| right ascension |" : "| declination |");
        const std::vector<std::string> catalogue = notations();
        ASSERT_EQ(rows.size(), catalogue.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            (format.*select)(catalogue[i]);
            ASSERT_GE(rows[i].size(), 2U);
            EXPECT_EQ(rows[i][0], catalogue[i]);
            EXPECT_EQ(rows[i][1], (format.*write)(name == "RA" ? 15.7851 : 22.6751));
            const double value = (format.*read)(rows[i][1], error);
            for (std::size_t text = 1; text < rows[i].size(); ++text) {
                EXPECT_NEAR((format.*read)(rows[i][text], error), value, 1e-9) << rows[i][text];
                EXPECT_EQ(error, "") << rows[i][text];
            }
        }
    }
}

} // namespace skyvert::guide_test
