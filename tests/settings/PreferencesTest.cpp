#include "settings/Preferences.h"

#include "platform/Files.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert::preferences_test {

namespace fs = std::filesystem;

struct PreferencesTest : testing::Test {
    Preferences open() const { return {root_ / "config", "Skyvert", "Preferences.xml"}; }

    /// A run that assigns one value; returns whether that counts as a change.
    bool store(const Variant& value) const {
        Preferences preferences = open();
        preferences.setValue("key", value);
        preferences.Close();
        return preferences.changed();
    }

    std::string stored() const { return open().Value("key", "default").stringValue(); }

    const TemporaryFolder root_;
    const fs::path folder_ = root_ / "config/Skyvert";
    const fs::path file_ = folder_ / "Preferences.xml";
};

TEST_F(PreferencesTest, OnlyADifferentValueCountsAsAChange) {
    const std::tuple<Variant, Variant, bool> cases[] = {
        {"Text", "Text", false}, {"Text", "text", true}, {true, std::int64_t{1}, true},
        {std::int32_t{3}, std::int64_t{3}, false}, {std::int32_t{3}, "3", true}, {{}, {}, false}};
    EXPECT_TRUE(store({}));
    EXPECT_TRUE(open().Value("key", "default").isNil());
    EXPECT_EQ(open().Value("Key", "other").stringValue(), "other");
    for (const auto& [old, value, changes] : cases) {
        store(old);
        const auto before = fs::file_time_type::clock::now() - std::chrono::hours(1);
        fs::last_write_time(file_, before);
        EXPECT_EQ(store(value), changes) << value.stringValue();
        EXPECT_EQ(fs::last_write_time(file_) != before, changes);
    }
}

TEST_F(PreferencesTest, AFileThatIsNoGoodCountsAsAbsentAndIsReplaced) {
    for (const char* content :
         {"", "<xmldict", "<xmldict version=\"1.2\"><key>key</key><string>x</string></xmldict>"}) {
        fs::create_directories(folder_);
        ASSERT_TRUE(writeWholeFile(file_, content));
        EXPECT_EQ(stored(), "default");
        EXPECT_EQ(readWholeFile(file_), content);
        store("new");
        EXPECT_EQ(stored(), "new");
    }
}

TEST_F(PreferencesTest, PlacesThatCannotBeUsedAreNoTrouble) {
    for (const fs::path& folderInTheWay : {file_ / "inside", root_ / "else"}) {
        fs::create_directories(folderInTheWay);
        store("lost");
        EXPECT_EQ(stored(), "default");
        fs::remove_all(folder_);
        EXPECT_TRUE(writeWholeFile(folder_, "a file in the folder's place"));
    }
}

} // namespace skyvert::preferences_test
