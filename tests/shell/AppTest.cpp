#include "shell/App.h"

#include "shell/MainWindowLayout.h"
#include "support/TestDesktop.h"

#include <gtest/gtest.h>

namespace skyvert::app_test {

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
        const ControlLayout& parent =
            layoutOf(mainWindowLayout(), row.parent.empty() ? "MainWindow" : row.parent);
        EXPECT_TRUE(row.left >= parent.left && row.left + row.width <= parent.left + parent.width &&
                    row.top >= parent.top && row.top + row.height <= parent.top + parent.height)
            << row.name;
    }
    EXPECT_THROW(layoutOf(mainWindowLayout(), "nothing"), std::out_of_range);
}

} // namespace skyvert::app_test
