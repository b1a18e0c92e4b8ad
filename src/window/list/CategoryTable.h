#pragma once

#include "browse/CategoryUses.h"
#include "window/controls/ArrayTable.h"

// The categories of a document in the columns "cat_category", the label, and "cat_howManyUsingThis", how many
// contacts have it.
class CategoryTableModel : public ArrayTableModel
{
    Q_OBJECT

public:
    enum { CategoryColumn = 0, UseColumn = 1 };

    // Neither is owned; both must outlive the model.
    CategoryTableModel(Foundation::ArrayController *categories, CategoryUses *uses, QObject *parent);

    QVariant data(const QModelIndex &index, int role) const override;

private:
    // What a screen reader says of the row: "Friends, 2 contacts, 3 of 7".
    QString sentenceOfRow(int row) const;
    CategoryUses *m_uses;
};

// The table of the sheet of categories: their labels, and how many contacts bear each.
class CategoryTable : public ArrayTable
{
    Q_OBJECT

public:
    explicit CategoryTable(QWidget *parent = nullptr);

    // Neither is owned; both must outlive the table.
    void setCategories(Foundation::ArrayController *categories, CategoryUses *uses);
};
