#pragma once

#include "qt/ControlViews.h"
#include "qt/ListboxModel.h"

#include <QTableView>
#include <QTimer>

namespace skyvert {

/// Shows a list box. However many rows come in one turn of the event loop, they are shown by one
/// insertion and one selection when the loop turns, or earlier if a person gets at the list first.
class ListboxView final : public WidgetView<QTableView, Listbox> {
public:
    ListboxView(Listbox& control, const Desktop& desktop, QWidget* parent);

    void refresh() override;

    /// In pixels.
    void setRowHeight(int height);

    bool hasRows() const { return control().RowCount() > 0; }

    bool hasSelectedRows() const { return !control().selection().empty(); }

    /// Puts the selected rows on the clipboard; leaves it alone while none is selected.
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
    QTimer* due_; ///< runs while there is something to flush when the event loop turns
    std::vector<RowRange> mirrored_; ///< the selection that the view and the list box agreed on
    bool mirroring_ = false;
};

} // namespace skyvert
