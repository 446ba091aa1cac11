#include "settings/Preferences.h"

#include "platform/Files.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

namespace fs = std::filesystem;

class PreferencesTest : public testing::Test {
protected:
    Preferences open() const { return {root_.path(), "Skyvert", "Preferences.xml"}; }

    /// A run that assigns one value; returns whether that counts as a change.
    bool store(const Variant& value, const char* key = "key") const {
        Preferences preferences = open();
        preferences.setValue(key, value);
        preferences.Close();
        return preferences.changed();
    }

    std::string stored() const { return open().Value("key", "default").stringValue(); }

    const TemporaryFolder root_;
    const fs::path folder_ = root_ / "Skyvert";
    const fs::path file_ = folder_ / "Preferences.xml";
};

TEST_F(PreferencesTest, TheFirstRunMakesTheFolderAndWritesOnlyWhatWasAssigned) {
    Preferences first = open();
    EXPECT_TRUE(fs::is_directory(folder_));
    EXPECT_EQ(first.Value("key", 0.0).stringValue(), "0");
    first.Close();
    EXPECT_FALSE(fs::exists(file_));
    store("a\tb");
    EXPECT_EQ(stored(), "a\tb");
    EXPECT_EQ(open().Value("Key", "other").stringValue(), "other");
    EXPECT_NE(readWholeFile(file_)->find("<xmldict version=\"1.1\">\n\t<key>key</key>\n"),
              std::string::npos);
}

TEST_F(PreferencesTest, OnlyADifferentValueCountsAsAChange) {
    const std::tuple<Variant, Variant, bool> cases[] = {{"Text", "Text", false},
                                                        {"Text", "text", true},
                                                        {std::int32_t{3}, std::int64_t{3}, false},
                                                        {std::int32_t{3}, "3", true},
                                                        {true, true, false},
                                                        {true, std::int64_t{1}, true},
                                                        {{}, {}, false}};
    EXPECT_TRUE(store({}, "nil"));
    EXPECT_TRUE(open().Value("nil", "default").isNil());
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
    const std::function<void()> obstacles[] = {
        [this] { fs::create_directories(file_ / "inside"); },
        [this] { EXPECT_TRUE(writeWholeFile(folder_, "a file in the folder's place")); },
        [this] { fs::create_directory_symlink("nowhere", folder_); }};
    for (const auto& obstruct : obstacles) {
        obstruct();
        store("lost");
        EXPECT_EQ(stored(), "default");
        fs::remove_all(folder_);
    }
}

} // namespace
} // namespace skyvert
