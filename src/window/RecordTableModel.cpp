#include "window/RecordTableModel.h"

#include "browse/RecordName.h"
#include "window/CategoryPill.h"

RecordTableModel::RecordTableModel(Foundation::ArrayController *records, QObject *parent)
    : ArrayTableModel(records,
                      {{QStringLiteral("category"), tr("Category")}, {QStringLiteral("name"), tr("Name")}},
                      parent)
{
}

void RecordTableModel::sort(int column, Qt::SortOrder order)
{
    const bool isAscending = order == Qt::AscendingOrder;
    std::vector<Foundation::SortDescriptor> descriptors;
    if (column == CategoryColumn)
        descriptors.push_back({QStringLiteral("categoryPtr.cat_category"), isAscending});
    if (column == CategoryColumn || column == NameColumn)
        descriptors.push_back({QString(), column == CategoryColumn || isAscending, displayedNameOfRecord});
    rows()->setSortDescriptors(std::move(descriptors));
    rows()->rearrangeObjects();
}

QVariant RecordTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    // The label is painted; its name is for assistive technology.
    if (index.column() == CategoryColumn) {
        const auto pill =
            role == Qt::AccessibleTextRole ? CategoryPill::ofRecord(objectOfRow(index.row())) : std::nullopt;
        return pill ? pill->name : QVariant();
    }
    if (role == Qt::DisplayRole)
        return displayedNameOfRecord(objectOfRow(index.row()));
    return {};
}
