#pragma once

#include "lists/ArrayController.h"

#include <QAbstractTableModel>

// The rows that a controller shows as the rows of a table. Reads the objects whenever a cell is asked for and
// keeps nothing.
class ArrayTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    struct Column
    {
        QString identifier; // as the interface names it
        QString title;
    };

    // Not owned; must outlive the model.
    ArrayTableModel(Foundation::ArrayController *rows, QList<Column> columns, QObject *parent);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const Foundation::Dictionary &objectOfRow(int row) const;
    // -1 for an identifier that no column has.
    int columnWithIdentifier(const QString &identifier) const;
    // Tells that the cells of a column may look different now.
    void redrawColumn(const QString &identifier);

protected:
    Foundation::ArrayController *rows() const { return m_rows; }

private:
    Foundation::ArrayController *m_rows;
    QList<Column> m_columns;
};
