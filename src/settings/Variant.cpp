#include "settings/Variant.h"

#include "platform/Number.h"
#include "platform/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <optional>
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

} // namespace

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
                   [](const HeldDate& date) { return date.text(); },
                   [](Color color) { return "&h" + zeroPadded(toText(color.value, 16), 8); },
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

Color colorFromText(std::string_view text) {
    Color color;
    if (text.starts_with("&h"))
        std::from_chars(text.data() + 2, text.data() + text.size(), color.value, 16);
    return color;
}

} // namespace skyvert
