// What one cell costs in each notation, to parse and to render, and one row in each pair of them.
#include "EngineRow.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace skyvert {
namespace {

constexpr std::size_t kPositions = 4096; // more than a branch predictor memorises

/// Positions spread evenly over the sky, the same in every run.
std::vector<Pair> positions() {
    std::mt19937_64 random(20240229); // NOLINT(cert-msc51-cpp, cert-msc32-c): the same every time
    std::uniform_real_distribution<double> hours(0.0, 23.99);
    std::uniform_real_distribution<double> sine(-1.0, 1.0);
    std::vector<Pair> drawn(kPositions);
    for (Pair& position : drawn)
        position = {hours(random), std::asin(sine(random)) * 57.29577951308232};
    return drawn;
}

struct Coordinate {
    void (RADecFormat::*setNotation)(std::string_view);
    double (RADecFormat::*import)(std::string_view, std::string_view&) const;
    char* (RADecFormat::*write)(double, char*) const;
    std::string (RADecFormat::*exported)(double) const;
    double Pair::*value;
};

constexpr Coordinate kRightAscension{&RADecFormat::setRaFormat, &RADecFormat::ImportRA,
                                     &RADecFormat::writeRA, &RADecFormat::ExportRA, &Pair::Left};
constexpr Coordinate kDeclination{&RADecFormat::setDecFormat, &RADecFormat::ImportDec,
                                  &RADecFormat::writeDec, &RADecFormat::ExportDec, &Pair::Right};

const Locale kLocale;

RADecFormat formatFor(const Coordinate& coordinate, const std::string& notation) {
    RADecFormat format("\t\tN\t2\t1", kLocale);
    (format.*coordinate.setNotation)(notation);
    return format;
}

std::vector<std::string> textsOf(const Coordinate& coordinate, const RADecFormat& format) {
    std::vector<std::string> texts;
    for (const Pair& position : positions())
        texts.push_back((format.*coordinate.exported)(position.*coordinate.value));
    return texts;
}

void parse(benchmark::State& state, const Coordinate& coordinate, const std::string& notation) {
    const RADecFormat format = formatFor(coordinate, notation);
    const std::vector<std::string> texts = textsOf(coordinate, format);
    std::string_view error;
    std::size_t at = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize((format.*coordinate.import)(texts[at++ % kPositions], error));
}

void render(benchmark::State& state, const Coordinate& coordinate, const std::string& notation) {
    const RADecFormat format = formatFor(coordinate, notation);
    const std::vector<Pair> values = positions();
    std::array<char, RADecFormat::kMaxText> text;
    std::size_t at = 0;
    for (auto _ : state) {
        const double value = values[at++ % kPositions].*coordinate.value;
        benchmark::DoNotOptimize((format.*coordinate.write)(value, text.data()));
        benchmark::ClobberMemory();
    }
}

void row(benchmark::State& state, const std::string& ra, const std::string& dec) {
    const std::vector<std::string> ras = textsOf(kRightAscension, formatFor(kRightAscension, ra));
    const std::vector<std::string> decs = textsOf(kDeclination, formatFor(kDeclination, dec));
    EngineRow engine(ra, dec);
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(engine.convert(ras[at], decs[at]).data());
        at = (at + 1) % kPositions;
    }
}

void registerCells(const Coordinate& coordinate, const std::string& notation) {
    benchmark::RegisterBenchmark(("parse/" + notation).c_str(), parse, coordinate, notation);
    benchmark::RegisterBenchmark(("render/" + notation).c_str(), render, coordinate, notation);
}

/// Benchmarks are known by name before the main function of the library asks for them.
[[maybe_unused]] const bool kRegistered = [] {
    const std::vector<std::string> ras = RADecFormat::SupportedRAFormats();
    const std::vector<std::string> decs = RADecFormat::SupportedDecFormats();
    for (const std::string& ra : ras)
        registerCells(kRightAscension, ra);
    for (const std::string& dec : decs)
        registerCells(kDeclination, dec);
    for (const std::string& ra : ras) {
        for (const std::string& dec : decs)
            benchmark::RegisterBenchmark(("row/" + ra + "/" + dec).c_str(), row, ra, dec);
    }
    return true;
}();

} // namespace
} // namespace skyvert
