#pragma once

#include "lists/ArrayController.h"

#include <QStyledItemDelegate>

// Draws the cells of the table of categories: in the column "cat_category" the category's label.
class MyCategoryTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // Not owned; outlives the delegate.
    MyCategoryTableDelegate(Foundation::ArrayController *categories, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    Foundation::ArrayController *myCategoryArrayController;
};
