#include "settings/Dictionary.h"
#include "settings/Values.h"

namespace skyvert::variant_test {

TEST(Variant, EveryKindConvertsToTextIntegerAndBoolean) {
    for (const auto& [cell, type, text, integer, boolean] : table<5>("variants")) {
        const Variant variant = value(cell);
        EXPECT_EQ(static_cast<int>(variant.type()), std::stoi(type)) << cell;
        EXPECT_EQ(variant.stringValue(), text);
        EXPECT_EQ(variant.integerValue(), std::stoll(integer)) << cell;
        EXPECT_EQ(variant.booleanValue(), boolean == "true") << cell;
    }
    EXPECT_TRUE(Variant(std::shared_ptr<Dictionary>()).isNil());
}

TEST(Variant, ValuesAreEqualAcrossWidthsButNotAcrossKinds) {
    std::vector<std::vector<Variant>> classes;
    for (const auto& row : table<4>("equal_values"))
        for (auto& members = classes.emplace_back(); const std::string& cell : row)
            if (!cell.empty())
                members.push_back(value(cell));
    const auto object = std::make_shared<Dictionary>();
    classes.push_back({object, Variant(object)});
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
