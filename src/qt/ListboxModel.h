#pragma once

#include "controls/Listbox.h"

#include <QAbstractTableModel>

namespace skyvert {

/// The rows of a list box as a model for Qt's views. It copies no rows: a cell's text is converted
/// when a view asks for it.
///
/// The model has as many rows as it has announced; `announce` adds all new rows in one step. Until
/// then it may have fewer rows than the list box, but never more: rows are only appended, and a
/// deletion must be announced immediately.
class ListboxModel final : public QAbstractTableModel {
public:
    /// The list box must outlive the model.
    ListboxModel(const Listbox& listbox, QObject* parent);

    /// Whether rows have been deleted since the last announcement.
    bool isOutdated() const { return generation_ != listbox_.generation(); }

    /// Updates the number of rows and the headings.
    void announce();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void announceDeletion();
    void announceRows();
    void announceHeadings();
    QStringList readHeadings() const;

    const Listbox& listbox_;
    std::uint64_t generation_;
    int rows_;
    QStringList headings_;
};

} // namespace skyvert
