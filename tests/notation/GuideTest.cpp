#include "notation/RADecFormat.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>

namespace skyvert {
namespace {

/// The texts between backquotes in one line.
std::vector<std::string> backquoted(const std::string& line) {
    static const std::regex pattern("`([^`]*)`");
    std::vector<std::string> texts;
    for (std::sregex_iterator at(line.begin(), line.end(), pattern), end; at != end; ++at)
        texts.push_back((*at)[1]);
    return texts;
}

/// The rows of the guide's table under a heading: notation, example, other texts that read alike.
std::vector<std::vector<std::string>> tableOfGuide(const std::string& heading) {
    std::ifstream guide(SKYVERT_TEST_DATA "/../../docs/guide.md");
    std::vector<std::vector<std::string>> rows;
    std::string line;
    while (std::getline(guide, line) && line.find(heading) == std::string::npos)
        ;
    while (std::getline(guide, line) && line.starts_with('|')) {
        if (line.starts_with("| `"))
            rows.push_back(backquoted(line));
    }
    return rows;
}

/// Where the program takes the notations of a kind from, and what it does with one of them.
struct Kind {
    const char* heading;
    std::vector<std::string> catalogue;
    void (RADecFormat::*select)(std::string_view);
    double (RADecFormat::*read)(std::string_view, std::string_view&) const;
    std::string (RADecFormat::*write)(double) const;
    double example;
};

TEST(Guide, ItsTablesOfNotationsShowWhatTheProgramWritesAndReads) {
    const Locale locale{".", ","};
    RADecFormat format(locale);
    format.setRADecimals(2);
    format.setDecDecimals(2);
    const Kind kinds[] = {
        {"| right ascension |", RADecFormat::SupportedRAFormats(), &RADecFormat::setRaFormat,
         &RADecFormat::ImportRA, &RADecFormat::ExportRA, 15.7851},
        {"| declination |", RADecFormat::SupportedDecFormats(), &RADecFormat::setDecFormat,
         &RADecFormat::ImportDec, &RADecFormat::ExportDec, 22.6751},
    };
    for (const Kind& kind : kinds) {
        const std::vector<std::vector<std::string>> rows = tableOfGuide(kind.heading);
        ASSERT_EQ(rows.size(), kind.catalogue.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            SCOPED_TRACE(rows[i][0]);
            ASSERT_GE(rows[i].size(), 2U);
            EXPECT_EQ(rows[i][0], kind.catalogue[i]);
            (format.*kind.select)(rows[i][0]);
            EXPECT_EQ(rows[i][1], (format.*kind.write)(kind.example));
            std::string_view error;
            const double value = (format.*kind.read)(rows[i][1], error);
            for (std::size_t text = 1; text < rows[i].size(); ++text) {
                EXPECT_NEAR((format.*kind.read)(rows[i][text], error), value, 1e-9)
                    << rows[i][text];
                EXPECT_EQ(error, "") << rows[i][text];
            }
        }
    }
}

} // namespace
} // namespace skyvert
