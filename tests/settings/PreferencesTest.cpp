#include "settings/Preferences.h"

#include "platform/Files.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace skyvert::preferences_test {

namespace fs = std::filesystem;

struct PreferencesTest : testing::Test {
    Preferences open() const { return {root_ / "config", "Skyvert", "Preferences.xml"}; }

    /// A run that assigns one value. Returns whether that counts as a change.
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
    const fs::path copy_ = folder_ / "Preferences.xml.new";
};

TEST_F(PreferencesTest, OnlyADifferentValueCountsAsAChange) {
    const std::tuple<Variant, Variant, bool> cases[] = {
        {"Text", "Text", false},       {"Text", "text", true},
        {true, std::int64_t{1}, true}, {std::int32_t{3}, std::int64_t{3}, false},
        {std::int32_t{3}, "3", true},  {{}, {}, false}};
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

TEST_F(PreferencesTest, ACompleteCopyIsTheNewestAndADamagedOneCountsAsAbsent) {
    const auto document = [](const std::string& version, const std::string& value) {
        return "<xmldict version=\"" + version + "\"><key>key</key><string>" + value +
               "</string></xmldict>";
    };
    const std::string old = document("1.1", "old"), whole = document("1.1", "copy");
    const std::string tooNew = document("1.2", "copy"), cut = whole.substr(0, whole.size() - 1);

    // The file, the copy, the value that is read, the file after that, and whether the copy stays.
    const std::tuple<std::string, std::string, std::string, std::string, bool> cases[] = {
        {"", cut, "default", "", false},        {cut, "", "default", cut, false},
        {tooNew, "", "default", tooNew, false}, {old, cut, "old", old, false},
        {old, tooNew, "old", old, true},        {old, whole, "copy", whole, false},
        {"", whole, "copy", whole, false}};
    fs::create_directories(folder_);
    for (const auto& [file, copy, value, after, stays] : cases) {
        ASSERT_TRUE(writeWholeFile(file_, file) && writeWholeFile(copy_, copy));
        EXPECT_EQ(stored(), value) << copy;
        EXPECT_EQ(readWholeFile(file_), after) << copy;
        EXPECT_EQ(fs::exists(copy_), stays) << copy;
        store("new");
        EXPECT_EQ(stored(), "new") << copy;
        EXPECT_FALSE(fs::exists(copy_)) << copy;
    }
}

TEST_F(PreferencesTest, LinksAndPermissionsStayAndAMissingFolderIsMadeAgain) {
    fs::create_directories(folder_);
    fs::create_symlink("../target", file_);
    store("new");
    constexpr auto kOwner = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(root_ / "config/target", kOwner);
    store("newer");
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(fs::status(file_).permissions(), kOwner);
    Preferences preferences = open();
    preferences.setValue("key", "newest");
    fs::remove_all(folder_);
    preferences.Close();
    EXPECT_EQ(stored(), "newest");
}

TEST_F(PreferencesTest, UnusablePathsAreHarmless) {
    const std::function<void()> cases[] = {
        [this] { fs::create_directories(file_ / "inside"); },
        [this] { fs::create_directories(folder_), fs::create_symlink("/dev/zero", file_); },
        [this] { fs::create_directories(folder_), mkfifo(file_.c_str(), 0600); },
        [this] { writeWholeFile(folder_, "a file where the folder would be"); }};
    for (const auto& prepare : cases) {
        fs::remove_all(folder_);
        prepare();
        store("lost");
        EXPECT_EQ(stored(), "default");
    }
}

} // namespace skyvert::preferences_test
