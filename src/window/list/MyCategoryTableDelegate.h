#pragma once

#include "lists/ArrayController.h"

#include <QStyledItemDelegate>

// Paints the cells of the table of categories. The column "cat_category" shows the label of the category.
class MyCategoryTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // `categories` is not owned and must outlive the delegate.
    MyCategoryTableDelegate(Foundation::ArrayController *categories, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    Foundation::ArrayController *myCategoryArrayController;
};
