#include "platform/Json.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace skyvert {
namespace {

TEST(JsonObject, WritesItsMembersCompactlyInOrder) {
    JsonObject object;
    object.add("z", std::int64_t{-1});
    object.add("a", std::string("say \"1\"\n\xFF"));
    EXPECT_EQ(object.toString(), "{\"z\":-1,\"a\":\"say \\\"1\\\"\\n\xEF\xBF\xBD\"}");
}

TEST(JsonObject, FindsMembersByNameAndTellsWrongKinds) {
    const JsonObject object = JsonObject::parse(
        R"( {"text":"\u00b0","row":4, "fraction":2.5,"nested":{"row":1},"row":5,"none":null,)"
        R"("large":9223372036854775808,"least":-9223372036854775808} )");
    EXPECT_EQ(object.integer("row"), 5);
    EXPECT_EQ(object.integer("least"), INT64_MIN);
    EXPECT_EQ(object.text("text"), "\xC2\xB0");
    EXPECT_EQ(object.integer("Row"), std::nullopt);
    for (const char* name : {"text", "fraction", "nested", "none", "large"})
        EXPECT_THROW(object.integer(name), std::invalid_argument) << name;
    EXPECT_THROW(object.text("row"), std::invalid_argument);
}

TEST(JsonObject, RefusesWhatIsNoObjectHoweverDeep) {
    const std::string deep(300'000, '[');
    for (const std::string& text : {std::string(), std::string("[1]"), std::string("{\"a\":1"),
                                    std::string("{\"a\":\"\xFF\"}"), std::string("{}{}"), deep,
                                    deep + std::string(deep.size(), ']')})
        EXPECT_THROW(JsonObject::parse(text), std::invalid_argument) << text.substr(0, 20);
}

} // namespace
} // namespace skyvert
