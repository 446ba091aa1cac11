#include "settings/Variant.h"

#include "platform/Number.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <functional>
#include <optional>
#include <span>
#include <type_traits>

namespace skyvert {

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};

template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

template <typename Kind>
concept Number = std::same_as<Kind, std::int32_t> || std::same_as<Kind, std::int64_t> ||
    std::same_as<Kind, float> || std::same_as<Kind, double>;

template <typename... Arguments>
std::string toText(Arguments... arguments) {
    std::array<char, 400> digits{}; // the longest double in fixed notation has 309 digits
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), arguments...).ptr;
    return {digits.data(), end};
}

template <Number Kind>
std::string numberText(Kind value) {
    if constexpr (std::floating_point<Kind>) {
        if (value == 0)
            return "0";
        if (std::trunc(value) == value)
            return toText(value, std::chars_format::fixed);
    }
    return toText(value);
}

std::string padded(int value, std::size_t width) {
    std::string digits = std::to_string(value);
    digits.insert(0, width - std::min(width, digits.size()), '0');
    return digits;
}

/// The integer equal to a floating-point number, if there is one.
std::optional<std::int64_t> wholeNumber(double value) {
    const std::int64_t whole = truncated(value);
    if (static_cast<double>(whole) != value || value >= 0x1p63)
        return std::nullopt;
    return whole;
}

template <Number Left, Number Right>
bool sameNumber(Left left, Right right) {
    if constexpr (std::integral<Left> == std::integral<Right>)
        return left == right;
    else if constexpr (std::integral<Left>)
        return wholeNumber(right) == std::optional<std::int64_t>(left);
    else
        return sameNumber(right, left);
}

template <typename Left, typename Right>
bool sameHeld(const Left& left, const Right& right) {
    if constexpr (Number<Left> && Number<Right>)
        return sameNumber(left, right);
    else if constexpr (std::same_as<Left, Right>)
        return left == right;
    else
        return false;
}

/// Reads numbers of fixed width, separated as in `kLayout`, until the text ends.
/// Returns their count, or nothing if the text does not have this form.
std::optional<std::size_t> readFields(std::string_view text, std::span<int, 6> fields) {
    static constexpr std::string_view kLayout = "0000-00-00 00:00:00";
    std::size_t field = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char expected = at < kLayout.size() ? kLayout[at] : '\0';
        if (expected != '0' ? text[at] != expected : text[at] < '0' || text[at] > '9')
            return std::nullopt;
        if (expected == '0')
            fields[field] = 10 * fields[field] + (text[at] - '0');
        else
            ++field;
    }
    return field + 1;
}

} // namespace

std::string DateValue::SQLDateTime() const {
    return padded(year, 4) + "-" + padded(month, 2) + "-" + padded(day, 2) + " " + padded(hour, 2) +
           ":" + padded(minute, 2) + ":" + padded(second, 2);
}

// Not inline: in the header, GCC 12 would warn about the library's code.
Variant::Variant(std::string_view value) : held_(Text(value.begin(), value.end())) {}

VarType Variant::type() const {
    static constexpr std::array kTypes{
        VarType::Nil,  VarType::Integer, VarType::Long,   VarType::Single,  VarType::Double,
        VarType::Date, VarType::String,  VarType::Object, VarType::Boolean, VarType::Color};
    static_assert(kTypes.size() == std::variant_size_v<decltype(held_)>);
    return kTypes.at(held_.index());
}

std::string Variant::stringValue() const {
    return std::visit(
        Overloaded{[](const Text& text) { return std::string(viewOf(text)); },
                   [](const bool& value) { return std::string(value ? "true" : "false"); },
                   [](const Number auto& value) { return numberText(value); },
                   [](const DateValue& date) { return date.SQLDateTime(); },
                   [](Color color) {
                       const std::string digits = toText(color.value, 16);
                       return "&h" + std::string(8 - digits.size(), '0') + digits;
                   },
                   [](const auto&) { return std::string(); }},
        held_);
}

double Variant::doubleValue() const {
    return std::visit(
        Overloaded{[](const Text& text) { return Val(viewOf(text)); },
                   [](const bool& value) { return value ? 1.0 : 0.0; },
                   [](const Number auto& value) { return static_cast<double>(value); },
                   [](const auto&) { return 0.0; }},
        held_);
}

std::int64_t Variant::integerValue() const {
    return std::visit(Overloaded{[](std::int32_t value) { return std::int64_t{value}; },
                                 [](std::int64_t value) { return value; },
                                 [this](const auto&) { return truncated(doubleValue()); }},
                      held_);
}

bool Variant::booleanValue() const {
    if (const auto text = string())
        return *text == "1" || equalsIgnoringCase(*text, "true");
    return doubleValue() != 0;
}

Color Variant::color() const {
    const Color* held = std::get_if<Color>(&held_);
    return held == nullptr ? Color{} : *held;
}

std::size_t Variant::hash() const {
    return std::visit(Overloaded{[](const Text& text) { return variantHash(viewOf(text)); },
                                 [](const Number auto& value) {
                                     return std::hash<double>()(static_cast<double>(value));
                                 },
                                 [](const std::shared_ptr<Object>& object) {
                                     return std::hash<std::shared_ptr<Object>>()(object);
                                 },
                                 [this](const auto&) { return variantHash(stringValue()); }},
                      held_);
}

bool VariantCompare(const Variant& left, const Variant& right) {
    return std::visit([](const auto& a, const auto& b) { return sameHeld(a, b); }, left.held_,
                      right.held_);
}

std::size_t variantHash(std::string_view text) {
    if (text.empty())
        return 0;
    const auto last = static_cast<unsigned char>(text.back());
    text.remove_suffix(1);
    return std::hash<std::string_view>()(text) + last;
}

Variant dateFromText(std::string_view text) {
    std::array<int, 6> fields{};
    const auto count = readFields(text, fields);
    if (!count || (text.size() != 10 && text.size() != 19))
        return {};
    const auto [year, month, day, hour, minute, second] = fields;
    const std::chrono::year_month_day date(std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    if (!date.ok() || hour > 23 || minute > 59 || second > 59)
        return {};
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    return DateValue{static_cast<std::int16_t>(year),
                     byte(month),
                     byte(day),
                     byte(hour),
                     byte(minute),
                     byte(second)};
}

Color colorFromText(std::string_view text) {
    Color color;
    if (text.starts_with("&h"))
        std::from_chars(text.data() + 2, text.data() + text.size(), color.value, 16);
    return color;
}

} // namespace skyvert
