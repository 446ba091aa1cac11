#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace skyvert {

/// The standard command of a menu item.
enum class MenuCommand { None, Quit, Undo, Cut, Copy, Paste, Delete, SelectAll };

/// One row of the menu table.
struct MenuItem {
    std::string_view Parent; ///< name of the menu that holds it; empty for the menu bar
    std::string_view Name;
    std::string_view Text;     ///< "&" marks the access key; "-" is a separator
    std::string_view Shortcut; ///< "Cmd" stands for the platform's menu modifier key
    MenuCommand Command = MenuCommand::None;

    bool isSeparator() const { return Text == "-"; }
};

/// The menu bar: a File menu with Quit, and an Edit menu for the focused text field or the list.
class MainMenuBar {
public:
    MainMenuBar();

    /// All menus and items, each menu before its items.
    std::span<const MenuItem> items() const { return items_; }

private:
    void Untitled0();
    void Untitled1();

    std::vector<MenuItem> items_;
};

} // namespace skyvert
