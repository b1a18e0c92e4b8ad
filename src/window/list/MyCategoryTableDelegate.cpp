#include "window/list/MyCategoryTableDelegate.h"

#include "window/list/CategoryPill.h"
#include "window/list/CategoryTable.h"

MyCategoryTableDelegate::MyCategoryTableDelegate(Foundation::ArrayController *categories, QObject *parent)
    : QStyledItemDelegate(parent)
    , myCategoryArrayController(categories)
{
}

void MyCategoryTableDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (index.column() != CategoryTableModel::CategoryColumn)
        return;
    const auto &category = myCategoryArrayController->arrangedObjects()[std::size_t(index.row())];
    CategoryPill::ofCategory(*category).paintIntoCell(*painter, ArrayTable::cellInRoom(option.rect),
                                                      ArrayTable::backgroundOfCell(option));
}
