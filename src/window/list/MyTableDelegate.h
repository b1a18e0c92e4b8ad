#pragma once

#include "lists/ArrayController.h"
#include "window/list/CategoryView.h"

#include <QStyledItemDelegate>

// Draws the cells of the record table: in the column "category" the label of the record's category as it is
// at that moment, in all others what the model says. Keeps the labels beside the record in step with the
// selection.
class MyTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // None is owned; all outlive the delegate.
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
