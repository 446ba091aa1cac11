#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace skyvert {

/// A JSON object (RFC 8259) whose members of interest are integers and texts.
class JsonObject {
public:
    /// Reads a JSON text that holds an object. Members of other kinds are kept by name only; of
    /// two members of one name the last one stands. Throws `std::invalid_argument` for a text
    /// that is no JSON or no object, however long or deeply nested it is.
    static JsonObject parse(std::string_view text);

    /// Appends a member. The name is one that the object does not have yet.
    void add(std::string name, std::int64_t value);
    void add(std::string name, std::string value);

    /// The member of that name, or nothing if there is none.
    /// Throws `std::invalid_argument` when it is of another kind.
    std::optional<std::int64_t> integer(std::string_view name) const;
    std::optional<std::string> text(std::string_view name) const;

    /// The object in compact form, its members in the order of insertion.
    std::string toString() const;

private:
    using Value = std::variant<std::monostate, std::int64_t, std::string>;

    template <typename T>
    std::optional<T> member(std::string_view name, const char* kind) const;

    std::vector<std::pair<std::string, Value>> members_; ///< monostate: of a kind not held here
};

} // namespace skyvert
