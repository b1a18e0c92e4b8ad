#pragma once

#include "lists/ArrayController.h"
#include "window/list/CategoryView.h"

#include <QStyledItemDelegate>

// Paints the cells of the record table. The column "category" shows the label of the record's category; all
// other columns show the text of the model. Also updates the category labels of the selected record.
class MyTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // The arguments are not owned and must outlive the delegate.
    MyTableDelegate(Foundation::ArrayController *records, CategoryView *categoryView,
                    CategoryView *categoryView2, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

    void tableViewSelectionDidChange();

private:
    Foundation::ArrayController *myFilteringArrayController;
    CategoryView *categoryView;
    CategoryView *categoryView2;
};
