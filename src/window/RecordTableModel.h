#pragma once

#include "foundation/ArrayController.h"
#include "window/CategoryPill.h"

#include <QAbstractTableModel>

// The rows that a record list shows, in two columns that bear the identifiers of the interface: "category"
// and "name". Reads the records whenever a cell is asked for and keeps nothing.
class RecordTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { CategoryColumn = 0, NameColumn = 1, ColumnCount = 2 };

    // Not owned; must outlive the model.
    explicit RecordTableModel(Foundation::ArrayController *records, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    std::optional<CategoryPill> pillOfRow(int row) const;
    // -1 for an identifier that no column has.
    static int columnWithIdentifier(const QString &identifier);
    // Tells that the cells of a column may look different now.
    void redrawColumn(int column);

private:
    const Foundation::Dictionary &recordOfRow(int row) const;

    Foundation::ArrayController *m_records;
};
