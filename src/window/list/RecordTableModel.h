#pragma once

#include "window/controls/ArrayTableModel.h"

// The model of the records, with the columns "category" and "name".
class RecordTableModel : public ArrayTableModel
{
    Q_OBJECT

public:
    enum { CategoryColumn = 0, NameColumn = 1 };

    // `records` is not owned and must outlive the model.
    explicit RecordTableModel(Foundation::ArrayController *records, QObject *parent = nullptr);

    QVariant data(const QModelIndex &index, int role) const override;
    // Sorts by the text of a column; contacts of one category are sorted by name. An invalid column restores
    // the order of the document.
    void sort(int column, Qt::SortOrder order) override;

private:
    // The text of a row for screen readers: "Anna Berger, Acme, category Friends, 3 of 312".
    QString sentenceOfRow(int row) const;
};
