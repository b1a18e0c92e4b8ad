#include "window/list/CategoryTable.h"

#include "core/RecordModel.h"
#include "values/DisplayText.h"
#include "window/controls/ShownPart.h"
#include "window/list/MyCategoryTableDelegate.h"

#include <QHeaderView>

CategoryTableModel::CategoryTableModel(Foundation::ArrayController *categories, CategoryUses *uses,
                                       QObject *parent)
    : ArrayTableModel(categories,
                      {{QStringLiteral("cat_category"), tr("Category")},
                       {QStringLiteral("cat_howManyUsingThis"), tr("Contacts")}},
                      parent)
    , m_uses(uses)
{
}

QVariant CategoryTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Foundation::Dictionary &category = objectOfRow(index.row());
    if (index.column() == CategoryColumn) // The delegate paints the label.
        return role == Qt::AccessibleTextRole ? sentenceOfRow(index.row()) : QVariant();
    if (role == Qt::DisplayRole)
        return m_uses->usesOf(category);
    return {};
}

QString CategoryTableModel::sentenceOfRow(int row) const
{
    const QString name =
        shownLine(Foundation::displayText(objectOfRow(row).value(CategoryKey::cat_category)));
    const int uses = index(row, UseColumn).data().toInt();
    return tr("%1, %2, %3 of %4")
        .arg(name, uses == 1 ? tr("1 contact") : tr("%1 contacts").arg(uses), QString::number(row + 1),
             QString::number(rowCount()));
}

CategoryTable::CategoryTable(QWidget *parent)
    : ArrayTable(parent)
{
    setSelectionMode(SingleSelection);
}

void CategoryTable::setCategories(Foundation::ArrayController *categories, CategoryUses *uses)
{
    constexpr int LabelWidth = 190;
    setRows(categories, new CategoryTableModel(categories, uses, this));
    setColumnWidth(CategoryTableModel::CategoryColumn, LabelWidth);
    setItemDelegateForColumn(CategoryTableModel::CategoryColumn,
                             new MyCategoryTableDelegate(categories, this));
}
