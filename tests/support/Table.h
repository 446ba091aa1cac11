#pragma once

#include "platform/Date.h"
#include "platform/Unicode.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace skyvert {

/// The text of a cell without its escapes, which tests/data/README.md lists.
inline std::string unescaped(const std::string& cell) {
    static const std::map<char, const char*> kEscapes{
        {'t', "\t"}, {'n', "\n"}, {'r', "\r"}, {'s', " "}, {'e', ""}};
    std::string text;
    for (std::size_t at = 0; at < cell.size(); ++at) {
        const char mark = cell[at] == '\\' && at + 1 < cell.size() ? cell[at + 1] : '\0';
        const auto code = [&](std::size_t digits) {
            at += 1 + digits;
            return std::stoul(cell.substr(at - digits + 1, digits), nullptr, 16);
        };
        if (const auto escape = kEscapes.find(mark); escape != kEscapes.end())
            text += escape->second, ++at;
        else if (mark == 'x')
            text += static_cast<char>(code(2));
        else if (mark == 'u')
            appendUtf8(static_cast<char32_t>(code(4)), text);
        else
            text += cell[at];
    }
    return text;
}

/// The rows of tests/data/`name`.tsv. Cells missing at the end of a row are empty.
template <std::size_t Columns>
std::vector<std::array<std::string, Columns>> table(const std::string& name) {
    std::ifstream file(SKYVERT_TEST_DATA "/" + name + ".tsv");
    std::vector<std::array<std::string, Columns>> rows;
    std::string line, rest;
    for (std::getline(file, line); std::getline(file, line);) {
        if (line.starts_with("# "))
            continue;
        std::istringstream cells(line);
        for (std::string& cell : rows.emplace_back())
            if (std::getline(cells, rest, '\t'))
                cell = unescaped(rest);
        EXPECT_FALSE(std::getline(cells, rest)) << name << " has too many cells: " << line;
    }
    EXPECT_FALSE(rows.empty()) << name;
    return rows;
}

/// A date as "Y-M-D" or "Y-M-D H:M:S".
inline Date date(const std::string& cell) {
    Date date(0, 1, 1);
    char mark{};
    std::istringstream fields(cell);
    fields >> date.year >> mark >> date.month >> mark >> date.day;
    fields >> date.hour >> mark >> date.minute >> mark >> date.second;
    return date;
}

/// The number in a cell; any other text fails the test.
inline double number(const std::string& cell) {
    double value = 0.0;
    const char* const begin = cell.data() + (cell.starts_with('+') ? 1 : 0);
    const char* const end = cell.data() + cell.size();
    EXPECT_TRUE(begin < end && std::from_chars(begin, end, value).ptr == end) << cell;
    return value;
}

} // namespace skyvert
