#include "window/RecordTableModel.h"

#include "browse/RecordName.h"

using Foundation::ArrayController;

RecordTableModel::RecordTableModel(ArrayController *records, QObject *parent)
    : QAbstractTableModel(parent)
    , m_records(records)
{
    connect(records, &ArrayController::arrangedObjectsChanged, this, [this] {
        beginResetModel();
        endResetModel();
    });
    connect(records, &ArrayController::objectChanged, this, [this](qsizetype row) {
        Q_EMIT dataChanged(index(int(row), 0), index(int(row), ColumnCount - 1));
    });
}

int RecordTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_records->arrangedObjects().size());
}

int RecordTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

const Foundation::Dictionary &RecordTableModel::recordOfRow(int row) const
{
    return *m_records->arrangedObjects()[std::size_t(row)];
}

std::optional<CategoryPill> RecordTableModel::pillOfRow(int row) const
{
    return CategoryPill::ofRecord(recordOfRow(row));
}

QVariant RecordTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    // The label is painted; its name is for assistive technology.
    if (index.column() == CategoryColumn) {
        const auto pill = role == Qt::AccessibleTextRole ? pillOfRow(index.row()) : std::nullopt;
        return pill ? pill->name : QVariant();
    }
    if (role == Qt::DisplayRole)
        return displayedNameOfRecord(recordOfRow(index.row()));
    return {};
}

QVariant RecordTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return section == CategoryColumn ? tr("Category") : tr("Name");
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

int RecordTableModel::columnWithIdentifier(const QString &identifier)
{
    static const QStringList identifiers = {QStringLiteral("category"), QStringLiteral("name")};
    return int(identifiers.indexOf(identifier));
}

void RecordTableModel::redrawColumn(int column)
{
    if (column >= 0 && rowCount() > 0)
        Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column));
}
