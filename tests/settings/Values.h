#pragma once

#include "settings/Objects.h"
#include "support/Table.h"

namespace skyvert {

/// The value of a cell: a kind, a colon, and a text, empty for Nil and Object.
inline Variant value(const std::string& cell) {
    static const std::map<std::string, Variant (*)(const std::string&)> kKinds{
        {"Nil", [](auto&) { return Variant(); }},
        {"Integer", [](auto& text) { return Variant(std::int32_t{std::stoi(text)}); }},
        {"Long", [](auto& text) { return Variant(std::int64_t{std::stoll(text)}); }},
        {"Single", [](auto& text) { return Variant(static_cast<float>(number(text))); }},
        {"Double", [](auto& text) { return Variant(number(text)); }},
        {"Date", [](auto& text) { return Variant(Date::fromSQL(text).value()); }},
        {"String", [](auto& text) { return Variant(text); }},
        {"Boolean", [](auto& text) { return Variant(text == "true"); }},
        {"Color", [](auto& text) { return Variant(colorFromText("&h" + text)); }},
        {"Object", [](auto&) { return Variant(std::make_shared<Object>()); }},
        {"Data", [](auto& text) { return Variant(std::make_shared<MemoryBlock>(text)); }},
        {"File", [](auto& text) { return Variant(std::make_shared<FolderItem>(text)); }}};
    const std::size_t colon = cell.find(':');
    return kKinds.at(cell.substr(0, colon))(cell.substr(colon + 1));
}

} // namespace skyvert
