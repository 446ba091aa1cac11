#include "platform/Variant.h"

#include "platform/Dictionary.h"

#include <gtest/gtest.h>

#include <limits>

namespace skyvert {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();

TEST(Variant, EveryKindConvertsToTextNumbersAndTruth) {
    using enum VarType;
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

    // clang-format off
    const struct {
        Variant value;
        VarType type;
        const char* text;
        std::int64_t integer;
        bool truth;
    } cases[] = {
        {{}, Nil, "", 0, false}, {std::int32_t{-3}, Integer, "-3", -3, true},
        {kMax, Long, "9223372036854775807", kMax, true}, {0.5F, Single, "0.5", 0, true},
        {0.0, Double, "0", 0, false}, {-0.0, Double, "0", 0, false},
        {-12.9, Double, "-12.9", -12, true}, {0.1, Double, "0.1", 0, true},
        {1e15, Double, "1000000000000000", 1000000000000000, true},
        {kInfinity, Double, "inf", kMax, true}, {kNan, Double, "nan", 0, true},
        {DateValue{987, 1, 2, 3, 4, 5}, Date, "0987-01-02 03:04:05", 0, false},
        {"12.9 apples", String, "12.9 apples", 12, false}, {"True", String, "True", 0, true},
        {"1", String, "1", 1, true}, {"yes", String, "yes", 0, false},
        {true, Boolean, "true", 1, true}, {false, Boolean, "false", 0, false},
        {skyvert::Color{0xAB}, VarType::Color, "&h000000ab", 0, false},
        {std::make_shared<Dictionary>(), VarType::Object, "", 0, false},
        {std::shared_ptr<Dictionary>(), Nil, "", 0, false}};

    // clang-format on
    for (const auto& [value, type, text, integer, truth] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(value.type(), type);
        EXPECT_EQ(value.stringValue(), text);
        EXPECT_EQ(value.integerValue(), integer);
        EXPECT_EQ(value.booleanValue(), truth);
    }
}

TEST(Variant, EqualValuesAreEqualWhateverTheWidthAndKindsDiffer) {
    const auto object = std::make_shared<Dictionary>();
    // clang-format off
    const std::vector<std::vector<Variant>> classes = {
        {{}, {}}, {std::int32_t{1}, std::int64_t{1}, 1.0F, 1.0}, {0.0, -0.0, std::int32_t{0}},
        {0.5F, 0.5}, {0.1}, {0.1F}, {kMax}, {kMax - 1}, {0x1p63}, {"1"}, {"a", std::string("a")},
        {"A"}, {true, true}, {false}, {Color{1}, Color{1}},
        {DateValue{2000, 1, 1}, DateValue{2000, 1, 1}}, {object, Variant(object)},
        {std::make_shared<Dictionary>()}};
    // clang-format on
    for (const auto& left : classes)
        for (const auto& right : classes)
            for (const Variant& a : left)
                for (const Variant& b : right) {
                    EXPECT_EQ(VariantCompare(a, b), &left == &right)
                        << a.stringValue() << " " << b.stringValue();
                    EXPECT_TRUE(&left != &right || a.hash() == b.hash());
                }
}

TEST(Dictionary, KeepsTheOrderOfKeysAndFindsThemAll) {
    Dictionary dictionary;
    constexpr std::int64_t count = 5000;
    for (std::int64_t i = 0; i < count; ++i) {
        dictionary.setValue("Contents.RA." + std::to_string(i), i);
        dictionary.setValue(i, std::to_string(i));
    }
    dictionary.setValue("Contents.RA.7", "new");
    dictionary.setValue(7.0, "other");
    ASSERT_EQ(dictionary.Count(), 2U * count);
    EXPECT_EQ(dictionary.Key(14).stringValue(), "Contents.RA.7");
    EXPECT_EQ(dictionary.ValueAt(14).stringValue(), "new");
    EXPECT_EQ(dictionary.find(std::int32_t{7})->stringValue(), "other");
    EXPECT_EQ(dictionary.find("Contents.RA.4999")->integerValue(), 4999);
    EXPECT_EQ(dictionary.find(Variant("Contents.RA.0"))->integerValue(), 0);
    for (const Variant& key : {Variant("contents.ra.0"), Variant("7"), Variant()})
        EXPECT_FALSE(dictionary.HasKey(key));
    EXPECT_THROW(dictionary.Key(2U * count), std::out_of_range);
}

} // namespace
} // namespace skyvert
