#pragma once

#include "shell/MainMenuBar.h"

#include <QAction>
#include <QMenuBar>
#include <QPointer>

#include <map>
#include <vector>

namespace skyvert {

/// Fills a window's menu bar. "Quit" closes the window; the Edit items act on the text field or
/// the list that has the keyboard focus, as the desktop's own programs do.
class MenuBarView final : public QObject {
public:
    /// The menu bar must belong to its window already.
    MenuBarView(const MainMenuBar& menus, QMenuBar& bar);

private:
    struct EditItem {
        MenuCommand command;
        QAction* action;
    };

    void addMenu(const MenuItem& item);
    void addItem(const MenuItem& item);
    void connectCommand(QAction& action, MenuCommand command);
    void focusMoved(QWidget* now);
    void updateEditItems();

    QMenuBar& bar_;
    std::vector<QMenu*> menus_;
    std::vector<EditItem> editItems_;
    QPointer<QWidget> target_; ///< what has the focus, menus aside
};

} // namespace skyvert
