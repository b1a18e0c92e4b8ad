#pragma once

#include "browse/CategoryUses.h"
#include "window/controls/ArrayTable.h"

// The model of the categories of a document. The column "cat_category" has the label, the column
// "cat_howManyUsingThis" the number of contacts from CategoryUses.
class CategoryTableModel : public ArrayTableModel
{
    Q_OBJECT

public:
    enum { CategoryColumn = 0, UseColumn = 1 };

    // The arguments are not owned and must outlive the model.
    CategoryTableModel(Foundation::ArrayController *categories, CategoryUses *uses, QObject *parent);

    QVariant data(const QModelIndex &index, int role) const override;

private:
    // The text of a row for screen readers: "Friends, 2 contacts, 3 of 7".
    QString sentenceOfRow(int row) const;
    CategoryUses *m_uses;
};

// The table in the sheet of categories.
class CategoryTable : public ArrayTable
{
    Q_OBJECT

public:
    explicit CategoryTable(QWidget *parent = nullptr);

    // The arguments are not owned and must outlive the table.
    void setCategories(Foundation::ArrayController *categories, CategoryUses *uses);
};
