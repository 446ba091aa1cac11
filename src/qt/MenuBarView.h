#pragma once

#include "shell/MainMenuBar.h"

#include <QAction>
#include <QMenuBar>
#include <QPointer>

#include <vector>

namespace skyvert {

class ListboxView;

/// Fills a window's menu bar. "Quit" closes the window; the Edit items act on the text field that
/// has the keyboard focus, or on the list if no field has it.
class MenuBarView final : public QObject {
public:
    /// The menu bar must already belong to its window, and the window must have its list.
    MenuBarView(const MainMenuBar& menus, QMenuBar& bar);

private:
    struct EditItem {
        MenuCommand command;
        QAction* action;
    };

    void addMenu(const MenuItem& item);
    void addItem(const MenuItem& item);
    void connectCommand(QAction& action, MenuCommand command);
    void fillContextMenu();
    void focusMoved(QWidget* now);
    void updateEditItems();

    QMenuBar& bar_;
    ListboxView& list_;
    std::vector<QMenu*> menus_;
    std::vector<EditItem> editItems_;
    QPointer<QWidget> target_; ///< the widget with the focus, ignoring menus
};

} // namespace skyvert
