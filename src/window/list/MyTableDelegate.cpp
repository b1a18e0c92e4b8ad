#include "window/list/MyTableDelegate.h"

#include "window/controls/ArrayTable.h"
#include "window/list/CategoryPill.h"
#include "window/list/RecordTableModel.h"

MyTableDelegate::MyTableDelegate(Foundation::ArrayController *records, CategoryView *view,
                                 CategoryView *view2, QObject *parent)
    : QStyledItemDelegate(parent)
    , myFilteringArrayController(records)
    , categoryView(view)
    , categoryView2(view2)
{
}

void MyTableDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (index.column() != RecordTableModel::CategoryColumn)
        return;
    const auto &record = myFilteringArrayController->arrangedObjects()[std::size_t(index.row())];
    if (const auto pill = CategoryPill::ofRecord(*record))
        pill->paintIntoCell(*painter, ArrayTable::cellInRoom(option.rect),
                            ArrayTable::backgroundOfCell(option));
}

void MyTableDelegate::tableViewSelectionDidChange()
{
    categoryView->refresh();
    categoryView2->refresh();
}
