#include "platform/Json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <type_traits>

namespace skyvert {

namespace {

using Json = nlohmann::json;

/// The library stores an integer without a minus as unsigned. One above the range of
/// `std::int64_t` is not an integer here.
bool isInteger(const Json& value) {
    return value.is_number_integer() &&
           (!value.is_number_unsigned() ||
            value.get<std::uint64_t>() <= std::numeric_limits<std::int64_t>::max());
}

} // namespace

JsonObject JsonObject::parse(std::string_view text) {
    const Json document = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!document.is_object())
        throw std::invalid_argument("the text is not a JSON object");
    JsonObject object;
    for (const auto& [name, value] : document.items()) {
        Value& held = object.members_.emplace_back(name, Value()).second;
        if (isInteger(value))
            held = value.get<std::int64_t>();
        else if (value.is_string())
            held = value.get<std::string>();
    }
    return object;
}

void JsonObject::add(std::string name, std::int64_t value) {
    members_.emplace_back(std::move(name), value);
}

void JsonObject::add(std::string name, std::string value) {
    members_.emplace_back(std::move(name), std::move(value));
}

template <typename T>
std::optional<T> JsonObject::member(std::string_view name, const char* kind) const {
    const auto found = std::find_if(members_.begin(), members_.end(),
                                    [&](const auto& entry) { return entry.first == name; });
    if (found == members_.end())
        return std::nullopt;
    const T* value = std::get_if<T>(&found->second);
    if (value == nullptr)
        throw std::invalid_argument("the JSON member \"" + std::string(name) + "\" is no " + kind);
    return *value;
}

std::optional<std::int64_t> JsonObject::integer(std::string_view name) const {
    return member<std::int64_t>(name, "integer");
}

std::optional<std::string> JsonObject::text(std::string_view name) const {
    return member<std::string>(name, "text");
}

std::string JsonObject::toString() const {
    nlohmann::ordered_json document = nlohmann::ordered_json::object();
    for (const auto& [name, value] : members_) {
        nlohmann::ordered_json& written = document[name];
        std::visit(
            [&](const auto& held) {
                if constexpr (!std::is_same_v<std::decay_t<decltype(held)>, std::monostate>)
                    written = held;
            },
            value);
    }
    return document.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace skyvert
