#include "window/list/RecordTableModel.h"

#include "browse/RecordName.h"
#include "core/RecordModel.h"
#include "values/DisplayText.h"
#include "window/controls/ShownPart.h"
#include "window/list/CategoryPill.h"

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
}

QString RecordTableModel::sentenceOfRow(int row) const
{
    constexpr qsizetype LongestPart = 200;
    const Foundation::Dictionary &record = objectOfRow(row);
    QStringList parts{displayedNameOfRecord(record).left(LongestPart),
                      Foundation::displayText(record.value(RecordKey::company)).left(LongestPart)};
    parts.removeDuplicates();
    parts.removeAll(QString());
    if (const auto pill = CategoryPill::ofRecord(record))
        parts.append(tr("category %1").arg(pill->name.left(LongestPart)));
    parts.append(tr("%1 of %2").arg(row + 1).arg(rowCount()));
    return parts.join(QStringLiteral(", "));
}

QVariant RecordTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (index.column() == CategoryColumn) // The delegate paints the label.
        return role == Qt::AccessibleTextRole ? sentenceOfRow(index.row()) : QVariant();
    if (role == Qt::DisplayRole)
        return shownLine(displayedNameOfRecord(objectOfRow(index.row())));
    return {};
}
