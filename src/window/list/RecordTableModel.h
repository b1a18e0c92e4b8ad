#pragma once

#include "window/controls/ArrayTableModel.h"

// The rows that a record list shows, in the columns "category" and "name".
class RecordTableModel : public ArrayTableModel
{
    Q_OBJECT

public:
    enum { CategoryColumn = 0, NameColumn = 1 };

    // Not owned; must outlive the model.
    explicit RecordTableModel(Foundation::ArrayController *records, QObject *parent = nullptr);

    QVariant data(const QModelIndex &index, int role) const override;
    // By what a column shows, contacts of one category by their names. No such column: in the order of the
    // document.
    void sort(int column, Qt::SortOrder order) override;

private:
    // What a screen reader says of the row: "Anna Berger, Acme, category Friends, 3 of 312".
    QString sentenceOfRow(int row) const;
};
