#pragma once

#include "notation/RADecFormat.h"

namespace skyvert {

/// The operations of RADecFormat for one of the two coordinates.
struct Coordinate {
    std::string_view name;
    std::vector<std::string> (*notations)();
    void (RADecFormat::*select)(std::string_view);
    double (RADecFormat::*read)(std::string_view, std::string_view&) const;
    std::string (RADecFormat::*write)(double) const;
    std::string (RADecFormat::*mask)() const;
};

inline constexpr Coordinate kCoordinates[] = {
    {"RA", &RADecFormat::SupportedRAFormats, &RADecFormat::setRaFormat, &RADecFormat::ImportRA,
     &RADecFormat::ExportRA, &RADecFormat::RAMask},
    {"Dec", &RADecFormat::SupportedDecFormats, &RADecFormat::setDecFormat, &RADecFormat::ImportDec,
     &RADecFormat::ExportDec, &RADecFormat::DecMask}};

} // namespace skyvert
