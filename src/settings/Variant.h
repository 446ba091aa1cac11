#pragma once

#include "platform/Color.h"
#include "platform/Date.h"

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

/// A value that a `Variant` holds by reference. An object is equal only to itself.
class Object {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
};

/// The kinds of value, with their established numbers.
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

/// A value of any kind, converted when it is read as another kind.
// clang-tidy does not see that no alternative throws when it is moved.
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

    Variant(const Date& value) : held_(HeldDate(value)) {}

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

    /// Integers as digits; a whole floating-point number without a point, any other in the shortest
    /// form that reads back exactly; "true" or "false"; a date as `SQLDateTime`; a colour as "&h"
    /// and eight hexadecimal digits; the empty text for Nil and objects.
    std::string stringValue() const;

    /// A number; 1 or 0 for a Boolean; the leading number of a string; 0 for any other kind.
    double doubleValue() const;

    /// As `doubleValue`, truncated towards zero and clamped to 64 bits. Integers are exact.
    std::int64_t integerValue() const;

    /// True for a number other than 0, the Boolean true, and the strings "1" and, ignoring case,
    /// "true".
    bool booleanValue() const;

    /// The string, or nothing for any other kind.
    std::optional<std::string_view> string() const {
        const auto* held = std::get_if<Text>(&held_);
        return held == nullptr ? std::nullopt : std::optional(viewOf(*held));
    }

    /// The colour, or black for any other kind.
    Color color() const;

    /// The object, or null if there is none of this class.
    template <std::derived_from<skyvert::Object> Kind>
    Kind* object() const {
        const auto* held = std::get_if<std::shared_ptr<Object>>(&held_);
        return held == nullptr ? nullptr : dynamic_cast<Kind*>(held->get());
    }

    /// Equal for values that `VariantCompare` calls equal.
    std::size_t hash() const;

    friend bool VariantCompare(const Variant& left, const Variant& right);

private:
    /// 24 bytes, which hold a text of up to 22 bytes without an allocation: most keys and cells.
    using Text = boost::container::string;

    static std::string_view viewOf(const Text& text) { return {text.data(), text.size()}; }

    /// A date by reference: it is rare, and twice as large as all other values. There is no move,
    /// which would leave a value without its date.
    class HeldDate {
    public:
        explicit HeldDate(const Date& date) : date_(std::make_shared<const Date>(date)) {}

        HeldDate(const HeldDate&) = default;
        HeldDate& operator=(const HeldDate&) = default;
        ~HeldDate() = default;

        bool operator==(const HeldDate& other) const { return *date_ == *other.date_; }

        std::string text() const { return date_->SQLDateTime(); }

    private:
        std::shared_ptr<const Date> date_;
    };

    std::variant<std::monostate, std::int32_t, std::int64_t, float, double, HeldDate, Text,
                 std::shared_ptr<Object>, bool, Color>
        held_;
};

/// Whether two values are equal: strings if they are identical, numbers of any width by value,
/// objects if they are the same object. Values of different kinds differ.
bool VariantCompare(const Variant& left, const Variant& right);

/// The hash of a string key, equal to that of a `Variant` that holds it. Texts that differ only in
/// their last character, such as consecutively numbered keys, have neighbouring hashes. Access in
/// the order of the keys then stays in the processor's cache, which saves a quarter of a load.
std::size_t variantHash(std::string_view text);

/// Parses "&h" and hexadecimal digits. Black if the text is not a colour.
Color colorFromText(std::string_view text);

} // namespace skyvert
