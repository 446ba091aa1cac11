#include "shell/MainMenuBar.h"

namespace skyvert {

MainMenuBar::MainMenuBar() {
    Untitled0();
    Untitled1();
}

/// Builds the File menu.
void MainMenuBar::Untitled0() {
    items_.insert(items_.end(), {{"", "FileMenu", "&File", ""},
                                 {"FileMenu", "FileQuit", "&Quit", "Cmd+Q", MenuCommand::Quit}});
}

/// Builds the Edit menu.
void MainMenuBar::Untitled1() {
    items_.insert(items_.end(),
                  {{"", "EditMenu", "&Edit", ""},
                   {"EditMenu", "EditUndo", "&Undo", "Cmd+Z", MenuCommand::Undo},
                   {"EditMenu", "EditSeparator1", "-", ""},
                   {"EditMenu", "EditCut", "Cu&t", "Cmd+X", MenuCommand::Cut},
                   {"EditMenu", "EditCopy", "&Copy", "Cmd+C", MenuCommand::Copy},
                   {"EditMenu", "EditPaste", "&Paste", "Cmd+V", MenuCommand::Paste},
                   {"EditMenu", "EditClear", "&Delete", "", MenuCommand::Delete},
                   {"EditMenu", "EditSeparator2", "-", ""},
                   {"EditMenu", "EditSelectAll", "Select &All", "Cmd+A", MenuCommand::SelectAll}});
}

} // namespace skyvert
