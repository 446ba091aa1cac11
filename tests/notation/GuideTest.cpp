#include "notation/RADecFormat.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>

namespace skyvert::guide_test {

/// The texts between backquotes in each row of the guide's table under a heading: notation, example,
/// other texts that read alike.
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

/// The catalogue, the example, and how the program selects, reads and writes a notation.
template <typename Select, typename Read, typename Write>
void expectShown(const char* heading, const std::vector<std::string>& catalogue, double example,
                 Select select, Read read, Write write) {
    const Locale locale{".", ","};
    RADecFormat format("\t\tN\t2\t2", locale);
    const auto rows = tableOfGuide(heading);
    ASSERT_EQ(rows.size(), catalogue.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        ASSERT_GE(rows[i].size(), 2U);
        EXPECT_EQ(rows[i][0], catalogue[i]);
        (format.*select)(catalogue[i]);
        EXPECT_EQ(rows[i][1], (format.*write)(example));
        std::string_view error;
        const double value = (format.*read)(rows[i][1], error);
        for (std::size_t text = 1; text < rows[i].size(); ++text) {
            EXPECT_NEAR((format.*read)(rows[i][text], error), value, 1e-9) << rows[i][text];
            EXPECT_EQ(error, "") << rows[i][text];
        }
    }
}

TEST(Guide, ItsTablesOfNotationsShowWhatTheProgramWritesAndReads) {
    expectShown("| right ascension |", RADecFormat::SupportedRAFormats(), 15.7851,
                &RADecFormat::setRaFormat, &RADecFormat::ImportRA, &RADecFormat::ExportRA);
    expectShown("| declination |", RADecFormat::SupportedDecFormats(), 22.6751,
                &RADecFormat::setDecFormat, &RADecFormat::ImportDec, &RADecFormat::ExportDec);
}

} // namespace skyvert::guide_test
