#include "qt/ListboxModel.h"

#include "qt/QtText.h"

namespace skyvert {

ListboxModel::ListboxModel(const Listbox& listbox, QObject* parent)
    : QAbstractTableModel(parent), listbox_(listbox), generation_(listbox.generation()),
      rows_(static_cast<int>(listbox.RowCount())), headings_(readHeadings()) {}

void ListboxModel::announce() {
    announceDeletion();
    announceRows();
    announceHeadings();
}

void ListboxModel::announceDeletion() {
    if (!isOutdated())
        return;
    beginResetModel();
    generation_ = listbox_.generation();
    rows_ = 0;
    endResetModel();
}

void ListboxModel::announceRows() {
    const int rows = static_cast<int>(listbox_.RowCount());
    if (rows == rows_)
        return;
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
}

void ListboxModel::announceHeadings() {
    const QStringList headings = readHeadings();
    if (headings == headings_)
        return;
    headings_ = headings;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

QStringList ListboxModel::readHeadings() const {
    QStringList headings;
    for (std::int64_t column = 0; column < listbox_.ColumnCount(); ++column)
        headings.append(toQString(listbox_.Heading(column)));
    return headings;
}

int ListboxModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int ListboxModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(listbox_.ColumnCount());
}

QVariant ListboxModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    return toQString(listbox_.Cell(index.row(), index.column()));
}

QVariant ListboxModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return headings_.value(section);
}

} // namespace skyvert
