#pragma once

#include "lists/ArrayController.h"

#include <QAbstractTableModel>

// The model of the rows that an ArrayController shows. Stores no data: it reads the objects for each cell.
class ArrayTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    struct Column
    {
        QString identifier; // the name of the column in the logic
        QString title;
    };

    // Not owned; must outlive the model.
    ArrayTableModel(Foundation::ArrayController *rows, QList<Column> columns, QObject *parent);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const Foundation::Dictionary &objectOfRow(int row) const;
    // Returns -1 if no column has the identifier.
    int columnWithIdentifier(const QString &identifier) const;
    // Makes the views redraw the cells of a column.
    void redrawColumn(const QString &identifier);

protected:
    Foundation::ArrayController *rows() const { return m_rows; }

private:
    Foundation::ArrayController *m_rows;
    QList<Column> m_columns;
};
