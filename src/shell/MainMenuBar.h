#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace skyvert {

/// What choosing a menu item does; all of it is the desktop's standard behaviour.
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

/// The menu bar: a File menu that quits and an Edit menu that acts on the focused control.
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
