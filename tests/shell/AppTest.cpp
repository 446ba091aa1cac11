#include "shell/App.h"

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
    app.prefs().setValue("key", "value");
    EXPECT_FALSE(std::filesystem::exists(folder / "Skyvert/Preferences.xml"));
    app.Event_Close();
    EXPECT_TRUE(std::filesystem::exists(folder / "Skyvert/Preferences.xml"));
    EXPECT_ANY_THROW(app.prefs());
    for (const char* event : {"Open", "Close", "UnhandledException"})
        EXPECT_EQ(App::IsEventImplemented(event), event != std::string("UnhandledException"));
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
        if (row.name == "MainWindow")
            continue;
        const ControlLayout& parent =
            layoutOf(mainWindowLayout(), row.parent.empty() ? "MainWindow" : row.parent);
        EXPECT_TRUE(row.left >= parent.left && row.left + row.width <= parent.left + parent.width &&
                    row.top >= parent.top && row.top + row.height <= parent.top + parent.height)
            << row.name;
    }
    EXPECT_THROW(layoutOf(mainWindowLayout(), "nothing"), std::out_of_range);
}

} // namespace
} // namespace skyvert
