#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace skyvert {

/// A JSON object (RFC 8259) that keeps the values of integers and texts only.
class JsonObject {
public:
    /// Parses a text that holds a JSON object. Members of other kinds keep only their name; of two
    /// members with one name the last counts. Throws `std::invalid_argument` for any other text,
    /// however long or deeply nested.
    static JsonObject parse(std::string_view text);

    /// Appends a member. The object must not have one of this name yet.
    void add(std::string name, std::int64_t value);
    void add(std::string name, std::string value);

    /// The member called `name`, or nothing if there is none.
    /// Throws `std::invalid_argument` if it is of another kind.
    std::optional<std::int64_t> integer(std::string_view name) const;
    std::optional<std::string> text(std::string_view name) const;

    /// The object as compact JSON, members in insertion order. Invalid UTF-8 becomes U+FFFD.
    std::string toString() const;

private:
    using Value = std::variant<std::monostate, std::int64_t, std::string>;

    template <typename T>
    std::optional<T> member(std::string_view name, const char* kind) const;

    std::vector<std::pair<std::string, Value>> members_; ///< monostate: another kind
};

} // namespace skyvert
