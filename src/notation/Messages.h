#pragma once

#include <string_view>

// Error messages and values shared by right ascension and declination.
namespace skyvert {

constexpr std::string_view kUnknownFormat = "Unknown format!";
constexpr std::string_view kNoData = "No data!";
constexpr std::string_view kBadFormat = "Bad format!";
constexpr std::string_view kBadMinutes = "Minutes must be non-negative and less than 60";
constexpr std::string_view kBadSeconds = "Seconds must be non-negative and less than 60";
constexpr double kValueOfBadFormat = -999.0;

} // namespace skyvert
