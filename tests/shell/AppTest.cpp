#include "shell/App.h"

#include "platform/Files.h"
#include "shell/FileTypes.h"
#include "shell/MainWindowLayout.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

TEST(App, OwnsTheSettingsFromItsOpenEventToItsCloseEvent) {
    const TemporaryFolder folder;
    TestDesktop machine;
    App app(machine.desktop, folder.path());
    EXPECT_ANY_THROW(app.prefs());
    app.Event_Open();
    EXPECT_TRUE(std::filesystem::is_directory(folder / "Skyvert"));
    EXPECT_FALSE(std::filesystem::exists(folder / "Skyvert/Preferences.xml"));
    app.prefs().setValue("key", "value");
    app.Event_Close();
    EXPECT_TRUE(std::filesystem::exists(folder / "Skyvert/Preferences.xml"));
    EXPECT_ANY_THROW(app.prefs());
}

TEST(App, HandlesItsOpenAndCloseEventsOnly) {
    EXPECT_TRUE(App::IsEventImplemented("Open"));
    EXPECT_TRUE(App::IsEventImplemented("Close"));
    EXPECT_FALSE(App::IsEventImplemented("UnhandledException"));
}

TEST(MainMenuBar, HasAFileMenuThatQuitsAndAnEditMenu) {
    const MainMenuBar bar;
    std::string menus;
    for (const MenuItem& item : bar.items())
        menus += (item.Parent.empty() ? "\n" : " | ") + std::string(item.Text) + " " +
                 std::string(item.Shortcut);
    EXPECT_EQ(menus, "\n&File  | &Quit Cmd+Q"
                     "\n&Edit  | &Undo Cmd+Z | -  | Cu&t Cmd+X | &Copy Cmd+C | &Paste Cmd+V"
                     " | &Delete  | -  | Select &All Cmd+A");
}

TEST(MainWindowLayout, EveryControlStandsWithinItsParent) {
    for (const ControlLayout& row : mainWindowLayout()) {
        SCOPED_TRACE(row.name);
        if (row.name == "MainWindow")
            continue;
        const std::string_view parentName = row.parent.empty() ? "MainWindow" : row.parent;
        const ControlLayout& parent = layoutOf(mainWindowLayout(), parentName);
        EXPECT_GE(row.left, parent.left);
        EXPECT_GE(row.top, parent.top);
        EXPECT_LE(row.left + row.width, parent.left + parent.width);
        EXPECT_LE(row.top + row.height, parent.top + parent.height);
    }
    EXPECT_THROW(layoutOf(mainWindowLayout(), "nothing"), std::out_of_range);
}

} // namespace
} // namespace skyvert
