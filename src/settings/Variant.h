#pragma once

#include "platform/Color.h"

#include <boost/container/string.hpp>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace skyvert {

/// What a `Variant` holds by reference; an object is equal to itself only.
class Object {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
};

/// A calendar date with its time of day, as a value to be stored.
struct DateValue {
    std::int16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;

    bool operator==(const DateValue&) const = default;

    /// For instance "2000-01-01 12:00:00".
    std::string SQLDateTime() const;
};

/// The kinds of value, under their established numbers.
enum class VarType {
    Nil = 0,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Date = 7,
    String = 8,
    Object = 9,
    Boolean = 11,
    Color = 16
};

/// A value of any kind, converted when it is read as another.
// No member of the variant throws when it is moved, which clang-tidy does not see.
// NOLINTNEXTLINE(bugprone-exception-escape)
class Variant {
public:
    Variant() = default; ///< Nil

    Variant(std::int32_t value) : held_(value) {}

    Variant(std::int64_t value) : held_(value) {}

    Variant(float value) : held_(value) {}

    Variant(double value) : held_(value) {}

    Variant(bool value) : held_(value) {}

    Variant(Color value) : held_(value) {}

    Variant(DateValue value) : held_(value) {}

    Variant(std::string_view value);

    Variant(const std::string& value) : Variant(std::string_view(value)) {}

    Variant(const char* value) : Variant(std::string_view(value)) {}

    /// A null pointer gives Nil.
    template <std::derived_from<skyvert::Object> Kind>
    Variant(std::shared_ptr<Kind> object) : Variant() {
        if (object)
            held_.template emplace<std::shared_ptr<Object>>(std::move(object));
    }

    VarType type() const;

    bool isNil() const { return std::holds_alternative<std::monostate>(held_); }

    /// Integers in digits; a double that is whole without a point, others in the shortest form
    /// that reads back; "true" and "false"; a date as its SQL text; a colour as "&h" and eight
    /// hexadecimal digits; the empty text for Nil and objects.
    std::string stringValue() const;

    /// Numbers, Booleans as 1 and 0, the leading number of a string; 0 for all else.
    double doubleValue() const;

    /// As `doubleValue`, truncated towards zero and limited to what 64 bits hold; integers exactly.
    std::int64_t integerValue() const;

    /// Numbers other than 0, and the texts "true", in any case, and "1".
    bool booleanValue() const;

    /// The string held, or nothing for another kind.
    std::optional<std::string_view> string() const {
        const auto* held = std::get_if<Text>(&held_);
        return held == nullptr ? std::nullopt : std::optional(viewOf(*held));
    }

    /// The colour held, or black for another kind.
    Color color() const;

    /// The object held, or null when there is none or it is of another class.
    template <std::derived_from<skyvert::Object> Kind>
    Kind* object() const {
        const auto* held = std::get_if<std::shared_ptr<Object>>(&held_);
        return held == nullptr ? nullptr : dynamic_cast<Kind*>(held->get());
    }

    /// Equal for equal values: see `VariantCompare`.
    std::size_t hash() const;

    friend bool VariantCompare(const Variant& left, const Variant& right);

private:
    /// Holds up to 22 bytes without memory of its own and takes 24 in all: most keys and cells.
    using Text = boost::container::string;

    static std::string_view viewOf(const Text& text) { return {text.data(), text.size()}; }

    std::variant<std::monostate, std::int32_t, std::int64_t, float, double, DateValue, Text,
                 std::shared_ptr<Object>, bool, Color>
        held_;
};

/// True when two values are equal: strings when they are identical, numbers of whatever width
/// by their value, objects when they are the same object. Values of different kinds differ.
bool VariantCompare(const Variant& left, const Variant& right);

/// The hash of a string key, the same as that of a `Variant` that holds it. Texts that differ in
/// their last character only have hashes that lie together, as do, for one, numbered keys: a table
/// that takes them in their order then finds its place in the processor's cache, which halves the
/// time of a million rows there.
std::size_t variantHash(std::string_view text);

/// The date that a text such as `DateValue::SQLDateTime` gives begins with; the time may be
/// missing. Nil when the text is no date.
Variant dateFromText(std::string_view text);

/// The colour of a text of "&h" and hexadecimal digits; black when it is none.
Color colorFromText(std::string_view text);

} // namespace skyvert
