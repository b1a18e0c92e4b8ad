#include "window/controls/ArrayTableModel.h"

using Foundation::ArrayController;

ArrayTableModel::ArrayTableModel(ArrayController *rows, QList<Column> columns, QObject *parent)
    : QAbstractTableModel(parent)
    , m_rows(rows)
    , m_columns(std::move(columns))
{
    connect(rows, &ArrayController::arrangedObjectsChanged, this, [this] {
        beginResetModel();
        endResetModel();
    });
    connect(rows, &ArrayController::objectsChanged, this, [this](const std::vector<std::size_t> &indexes) {
        // One range for all changes, since redrawing the visible part of it is fast.
        Q_EMIT dataChanged(index(int(indexes.front()), 0), index(int(indexes.back()), columnCount() - 1));
    });
}

int ArrayTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows->arrangedObjects().size());
}

int ArrayTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

const Foundation::Dictionary &ArrayTableModel::objectOfRow(int row) const
{
    return *m_rows->arrangedObjects()[std::size_t(row)];
}

QVariant ArrayTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return m_columns[section].title;
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

int ArrayTableModel::columnWithIdentifier(const QString &identifier) const
{
    for (int column = 0; column < columnCount(); ++column) {
        if (m_columns[column].identifier == identifier)
            return column;
    }
    return -1;
}

void ArrayTableModel::redrawColumn(const QString &identifier)
{
    const int column = columnWithIdentifier(identifier);
    if (column >= 0 && rowCount() > 0)
        Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column));
}
