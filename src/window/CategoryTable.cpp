#include "window/CategoryTable.h"

#include "core/RecordModel.h"
#include "foundation/DisplayText.h"
#include "window/MyCategoryTableDelegate.h"

#include <QHeaderView>

CategoryTableModel::CategoryTableModel(Foundation::ArrayController *categories, QObject *parent)
    : ArrayTableModel(categories,
                      {{QStringLiteral("cat_category"), tr("Category")},
                       {QStringLiteral("cat_howManyUsingThis"), tr("Contacts")}},
                      parent)
{
}

QVariant CategoryTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Foundation::Dictionary &category = objectOfRow(index.row());
    // The label is painted; its name is for assistive technology.
    if (index.column() == CategoryColumn)
        return role == Qt::AccessibleTextRole
                   ? Foundation::displayText(category.value(CategoryKey::cat_category))
                   : QVariant();
    if (role == Qt::DisplayRole)
        return category.value(CategoryKey::cat_howManyUsingThis).intValue();
    return {};
}

CategoryTable::CategoryTable(QWidget *parent)
    : ArrayTable(parent)
{
    setSelectionMode(SingleSelection);
}

void CategoryTable::setCategories(Foundation::ArrayController *categories)
{
    constexpr int LabelWidth = 190;
    setRows(categories, new CategoryTableModel(categories, this));
    setColumnWidth(CategoryTableModel::CategoryColumn, LabelWidth);
    setItemDelegateForColumn(CategoryTableModel::CategoryColumn,
                             new MyCategoryTableDelegate(categories, this));
}
