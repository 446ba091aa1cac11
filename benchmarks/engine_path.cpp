// engine_path LIST [RA-NOTATION DEC-NOTATION]
// Converts every row of a list that is kept in memory, and says what a row takes. The list has two
// cells a row, joined by TAB, in HH MM SS and +DD MM SS: what yardstick/gen.py writes as `tab`. In
// other notations it is rendered first, outside the measured time.
#include "EngineRow.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <vector>

namespace {

using skyvert::EngineRow;
using skyvert::RADecFormat;

struct Row {
    std::string_view ra;
    std::string_view dec;
};

std::string contentsOf(const char* path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return std::move(text).str();
}

std::vector<Row> rowsOf(std::string_view list) {
    std::vector<Row> rows;
    while (!list.empty()) {
        const std::string_view line = list.substr(0, list.find('\n'));
        const std::size_t tab = line.find('\t');
        rows.push_back({line.substr(0, tab), line.substr(tab + 1)});
        list.remove_prefix(line.size() + 1);
    }
    return rows;
}

/// The list in other notations, with the decimals that its fields had.
std::string inNotations(const std::vector<Row>& rows, const char* ra, const char* dec) {
    const skyvert::Locale locale;
    const RADecFormat from(locale);
    const RADecFormat to(std::string(ra) + '\t' + dec + "\tN\t2\t1", locale);
    std::string_view error;
    std::string list;
    for (const Row& row : rows) {
        list += to.ExportRA(from.ImportRA(row.ra, error));
        list += '\t';
        list += to.ExportDec(from.ImportDec(row.dec, error));
        list += '\n';
    }
    return list;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        std::cerr << "engine_path LIST [RA-NOTATION DEC-NOTATION]\n";
        return 2;
    }
    std::string list = contentsOf(argv[1]);
    const char* const ra = argc == 4 ? argv[2] : "HH MM SS";
    const char* const dec = argc == 4 ? argv[3] : "+DD MM SS";
    if (argc == 4)
        list = inNotations(rowsOf(list), ra, dec);
    const std::vector<Row> rows = rowsOf(list);

    EngineRow engine(ra, dec);
    std::size_t check = 0; // printed, so that no work can be left out
    const auto start = std::chrono::steady_clock::now();
    for (const Row& row : rows)
        check = check * 31 + static_cast<unsigned char>(engine.convert(row.ra, row.dec).back());
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
    std::printf("engine rows %zu  %.1f ns/row  check %zx\n", rows.size(),
                taken.count() / static_cast<double>(rows.size()), check);
}
