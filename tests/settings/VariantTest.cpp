#include "settings/Variant.h"

#include "settings/Dictionary.h"

#include <gtest/gtest.h>

namespace skyvert::variant_test {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();

TEST(Variant, EveryKindConvertsToTextNumbersAndTruth) {
    using enum VarType;
    using Limits = std::numeric_limits<double>;

    const std::tuple<Variant, VarType, const char*, std::int64_t, bool> cases[] = {
        {{}, Nil, "", 0, false},
        {std::int32_t{-3}, Integer, "-3", -3, true},
        {kMax - 1, Long, "9223372036854775806", kMax - 1, true},
        {0.5F, Single, "0.5", 0, true},
        {0.0, Double, "0", 0, false},
        {-0.0, Double, "0", 0, false},
        {-12.9, Double, "-12.9", -12, true},
        {0.1, Double, "0.1", 0, true},
        {1e15, Double, "1000000000000000", 1000000000000000, true},
        {Limits::infinity(), Double, "inf", kMax, true},
        {Limits::quiet_NaN(), Double, "nan", 0, true},
        {DateValue{987, 1, 2, 3, 4, 5}, Date, "0987-01-02 03:04:05", 0, false},
        {"12.9 apples", String, "12.9 apples", 12, false},
        {"True", String, "True", 0, true},
        {"1", String, "1", 1, true},
        {"yes", String, "yes", 0, false},
        {true, Boolean, "true", 1, true},
        {false, Boolean, "false", 0, false},
        {skyvert::Color{0xAB}, VarType::Color, "&h000000ab", 0, false},
        {std::make_shared<Dictionary>(), VarType::Object, "", 0, false},
        {std::shared_ptr<Dictionary>(), Nil, "", 0, false}};

    for (const auto& [value, type, text, integer, truth] : cases) {
        EXPECT_EQ(value.stringValue(), text);
        EXPECT_TRUE(value.type() == type && value.booleanValue() == truth) << text;
        EXPECT_EQ(value.integerValue(), integer) << text;
    }
}

TEST(Variant, EqualValuesAreEqualWhateverTheWidthAndKindsDiffer) {
    const auto object = std::make_shared<Dictionary>();
    const std::vector<std::vector<Variant>> classes = {
        {{}, {}},
        {std::int32_t{1}, std::int64_t{1}, 1.0F, 1.0},
        {0.0, -0.0, std::int32_t{0}},
        {0.5F, 0.5},
        {0.1},
        {0.1F},
        {kMax},
        {kMax - 1},
        {0x1p63},
        {"1"},
        {"a", std::string("a")},
        {"A"},
        {true, true},
        {false},
        {Color{1}, Color{1}},
        {DateValue{2000, 1, 1}, DateValue{2000, 1, 1}},
        {object, Variant(object)},
        {std::make_shared<Dictionary>()}};
    for (const auto& left : classes)
        for (const auto& right : classes)
            for (const Variant& a : left)
                for (const Variant& b : right) {
                    EXPECT_EQ(VariantCompare(a, b), &left == &right)
                        << a.stringValue() << " " << b.stringValue();
                    EXPECT_TRUE(&left != &right || a.hash() == b.hash());
                }
}

} // namespace skyvert::variant_test
