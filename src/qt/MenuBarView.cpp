#include "qt/MenuBarView.h"

#include "qt/ListboxView.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include <algorithm>
#include <array>

namespace skyvert {

namespace {

/// What an Edit item does in a text field and in the list, and when it is possible. Null where the
/// list does not have the item.
struct EditCommand {
    MenuCommand command;
    bool (*possible)(const QLineEdit&);
    void (*inField)(QLineEdit&);
    bool (*possibleInList)(const ListboxView&);
    void (*inList)(ListboxView&);
};

bool hasSelection(const QLineEdit& field) {
    return field.hasSelectedText();
}

/// Calls a slot by its name, so that a slot of a derived class hides that of `QLineEdit`.
void callSlot(QLineEdit& field, const char* slot) {
    QMetaObject::invokeMethod(&field, slot);
}

void pressDelete(QLineEdit& field) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(&field, &press);
}

constexpr std::array<EditCommand, 6> kEditCommands{{
    {MenuCommand::Undo, [](const QLineEdit& field) { return field.isUndoAvailable(); },
     [](QLineEdit& field) { callSlot(field, "undo"); }, nullptr, nullptr},
    {MenuCommand::Cut, &hasSelection, [](QLineEdit& field) { callSlot(field, "cut"); }, nullptr,
     nullptr},
    {MenuCommand::Copy, &hasSelection, [](QLineEdit& field) { callSlot(field, "copy"); },
     [](const ListboxView& list) { return list.hasSelectedRows(); },
     [](ListboxView& list) { list.copySelection(); }},
    {MenuCommand::Paste,
     [](const QLineEdit&) { return !QGuiApplication::clipboard()->text().isEmpty(); },
     [](QLineEdit& field) { callSlot(field, "paste"); }, nullptr, nullptr},
    {MenuCommand::Delete, &hasSelection, &pressDelete, nullptr, nullptr},
    {MenuCommand::SelectAll, [](const QLineEdit& field) { return !field.text().isEmpty(); },
     [](QLineEdit& field) { callSlot(field, "selectAll"); },
     [](const ListboxView& list) { return list.hasRows(); },
     [](ListboxView& list) { list.selectAll(); }},
}};

const EditCommand* editCommand(MenuCommand command) {
    const auto found = std::find_if(kEditCommands.begin(), kEditCommands.end(),
                                    [command](const auto& row) { return row.command == command; });
    return found == kEditCommands.end() ? nullptr : &*found;
}

bool isPossible(const EditCommand& command, QWidget* target, const ListboxView& list) {
    if (const auto* const field = qobject_cast<QLineEdit*>(target))
        return command.possible(*field);
    return command.possibleInList != nullptr && command.possibleInList(list);
}

void perform(const EditCommand& command, QWidget* target, ListboxView& list) {
    if (auto* const field = qobject_cast<QLineEdit*>(target))
        command.inField(*field);
    else if (command.inList != nullptr)
        command.inList(list);
}

/// The list of a window, found by its name because the calendar popup is a table, too.
ListboxView& listOf(const QWidget& window) {
    return dynamic_cast<ListboxView&>(*window.findChild<QTableView*>("list"));
}

} // namespace

MenuBarView::MenuBarView(const MainMenuBar& menus, QMenuBar& bar)
    : QObject(&bar), bar_(bar), list_(listOf(*bar.window())) {
    for (const MenuItem& item : menus.items()) {
        if (item.Parent.empty())
            addMenu(item);
        else
            addItem(item);
    }
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { focusMoved(now); });
    connect(list_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { updateEditItems(); });
    fillContextMenu();
    updateEditItems();
}

/// Adds the Edit items that apply to the list to its context menu.
void MenuBarView::fillContextMenu() {
    for (const EditItem& item : editItems_) {
        if (editCommand(item.command)->inList != nullptr)
            list_.addAction(item.action);
    }
    list_.setContextMenuPolicy(Qt::ActionsContextMenu);
}

void MenuBarView::addMenu(const MenuItem& item) {
    QMenu* const menu = bar_.addMenu(toQString(item.Text));
    menu->setObjectName(toQString(item.Name));
    connect(menu, &QMenu::aboutToShow, this, [this] { updateEditItems(); });
    menus_.push_back(menu);
}

/// The items of a menu follow it in the table.
void MenuBarView::addItem(const MenuItem& item) {
    if (item.isSeparator()) {
        menus_.back()->addSeparator()->setObjectName(toQString(item.Name));
        return;
    }
    QAction* const action = menus_.back()->addAction(toQString(item.Text));
    action->setObjectName(toQString(item.Name));
    // On macOS, Qt's "Ctrl" is the Command key.
    action->setShortcut(toQString(item.Shortcut).replace("Cmd", "Ctrl"));
    action->setMenuRole(item.Command == MenuCommand::Quit ? QAction::QuitRole : QAction::NoRole);
    connectCommand(*action, item.Command);
}

void MenuBarView::connectCommand(QAction& action, MenuCommand command) {
    if (command == MenuCommand::Quit) {
        connect(&action, &QAction::triggered, bar_.window(), &QWidget::close);
    } else if (const EditCommand* const edit = editCommand(command)) {
        editItems_.push_back({command, &action});
        connect(&action, &QAction::triggered, this,
                [this, edit] { perform(*edit, target_, list_); });
    }
}

/// An open menu takes the focus, but its items act on the widget that had the focus before.
void MenuBarView::focusMoved(QWidget* now) {
    if (now == nullptr || qobject_cast<QMenuBar*>(now) || qobject_cast<QMenu*>(now))
        return;
    target_ = now;
    updateEditItems();
}

void MenuBarView::updateEditItems() {
    for (const EditItem& item : editItems_)
        item.action->setEnabled(isPossible(*editCommand(item.command), target_, list_));
}

} // namespace skyvert
