#include "settings/Preferences.h"

#include "platform/Files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <tuple>

namespace skyvert {
namespace {

namespace fs = std::filesystem;

class PreferencesTest : public testing::Test {
protected:
    PreferencesTest() { fs::remove_all(root_); }

    ~PreferencesTest() override {
        std::error_code ignored;
        fs::permissions(folder_, fs::perms::owner_all, ignored);
        fs::remove_all(root_, ignored);
    }

    Preferences open() const { return {root_, "Skyvert", "Preferences.xml"}; }

    /// A run that assigns one value.
    void store(const Variant& value) const {
        Preferences preferences = open();
        preferences.setValue("key", value);
        preferences.Close();
    }

    std::string stored() const { return open().Value("key", "default").stringValue(); }

    const fs::path root_ = fs::path(testing::TempDir()) /
                           testing::UnitTest::GetInstance()->current_test_info()->name();
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
    EXPECT_TRUE(readWholeFile(file_)->find("<xmldict version=\"1.1\">\n\t<key>key</key>\n"));
}

TEST_F(PreferencesTest, OnlyADifferentValueCountsAsAChange) {
    {
        Preferences preferences = open();
        preferences.setValue("text", "Text");
        preferences.setValue("count", std::int32_t{3});
        preferences.setValue("flag", true);
        preferences.setValue("nil", {});
        preferences.Close();
    }

    const std::initializer_list<std::tuple<const char*, Variant, bool>> cases = {
        {"text", "Text", false},         {"text", "text", true}, {"count", std::int64_t{3}, false},
        {"count", 3.0, false},           {"count", "3", true},   {"flag", true, false},
        {"flag", std::int64_t{1}, true}, {"nil", {}, false},     {"new", {}, true}};
    const auto before = fs::file_time_type::clock::now() - std::chrono::hours(1);
    for (const auto& [key, value, changes] : cases) {
        SCOPED_TRACE(std::string(key) + " " + value.stringValue());
        fs::last_write_time(file_, before);
        const std::string bytes = *readWholeFile(file_);
        Preferences preferences = open();
        EXPECT_TRUE(preferences.Value("nil", "default").isNil());
        preferences.setValue(key, value);
        EXPECT_EQ(preferences.changed(), changes);
        preferences.Close();
        EXPECT_EQ(fs::last_write_time(file_) != before, changes);
        EXPECT_TRUE(writeWholeFile(file_, bytes));
    }
}

TEST_F(PreferencesTest, AFileThatIsNoGoodCountsAsAbsentAndIsReplaced) {
    for (const char* content :
         {"", "<xmldict", "<xmldict version=\"1.2\"><key>key</key><string>x</string></xmldict>"}) {
        SCOPED_TRACE(content);
        fs::create_directories(folder_);
        ASSERT_TRUE(writeWholeFile(file_, content));
        EXPECT_EQ(stored(), "default");
        EXPECT_EQ(readWholeFile(file_), content);
        store("new");
        EXPECT_EQ(stored(), "new");
    }
}

TEST_F(PreferencesTest, PlacesThatCannotBeUsedAreNoTrouble) {
    fs::create_directories(file_ / "inside");
    store("lost");
    EXPECT_EQ(stored(), "default");

    fs::remove_all(folder_);
    ASSERT_TRUE(writeWholeFile(folder_, "a file in the folder's place"));
    store("lost");
    EXPECT_EQ(stored(), "default");

    fs::remove(folder_);
    fs::create_directory_symlink("nowhere", folder_);
    store("lost");
    fs::remove(folder_);

    // Permissions do not bind a superuser, for whom these just succeed.
    store("old");
    fs::permissions(file_, fs::perms::owner_read);
    store("new");
    EXPECT_TRUE(stored() == "old" || stored() == "new");
    fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec);
    store("newer");
    EXPECT_NE(stored(), "default");
}

} // namespace
} // namespace skyvert
