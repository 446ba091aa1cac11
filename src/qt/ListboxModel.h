#pragma once

#include "controls/Listbox.h"

#include <QAbstractTableModel>

namespace skyvert {

/// The rows of a list box as Qt's views read them. Nothing is copied: a cell's text becomes Qt's
/// when it is asked for.
///
/// The model shows as many rows as it has announced, and `announce` tells of all new ones at once.
/// In between it is behind the list box, but never ahead of it: rows only ever come at the end, and
/// a deletion must be announced at once.
class ListboxModel final : public QAbstractTableModel {
public:
    /// The list box outlives the model.
    ListboxModel(const Listbox& listbox, QObject* parent);

    /// Whether rows have been deleted since the last announcement.
    bool isOutdated() const { return generation_ != listbox_.generation(); }

    /// Brings the number of rows and the headings up to date.
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
