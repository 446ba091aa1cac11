#pragma once

#include "qt/ControlViews.h"
#include "qt/ListboxModel.h"

#include <QTableView>
#include <QTimer>

namespace skyvert {

/// Shows a list box. All rows added in one turn of the event loop are shown by one insertion and
/// one selection when the loop turns, or earlier if the user acts on the list first.
class ListboxView final : public WidgetView<QTableView, Listbox> {
public:
    ListboxView(Listbox& control, const Desktop& desktop, QWidget* parent);

    void refresh() override;

    /// Sets the height of each row, in pixels.
    void setRowHeight(int height);

    bool hasRows() const { return control().RowCount() > 0; }

    bool hasSelectedRows() const { return !control().selection().empty(); }

    /// Copies the selected rows to the clipboard; does nothing if none is selected.
    void copySelection();

    void selectAll() override;

protected:
    void mirror() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void flush();
    void flushPending();
    void mirrorSelection();
    void takeSelection();
    std::vector<RowRange> shownSelection() const;

    ListboxModel* model_;
    QTimer* due_; ///< active while changes wait for the next turn of the event loop
    std::vector<RowRange> mirrored_; ///< the selection of the list box when it was last mirrored
    bool mirroring_ = false;
};

} // namespace skyvert
