#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QModelIndex>

class AccessibleCell;
class QAbstractItemModel;
class QAbstractItemView;

// The accessible class of a table, list or tree. It replaces the class of the toolkit, which returns a null
// cell for a position outside the table. The bridge uses that null pointer, so any program on the
// accessibility bus could crash the application. In this class all positions are safe: cellAt() returns an
// invalid cell for a position outside.
//
// Cells are made on demand and deleted when rows are added or removed. Children have the numbers that the
// views of the toolkit use in their events: row by row, including the headers, even hidden ones. The rows of
// a tree are the visible items.
class AccessibleTable : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit AccessibleTable(QAbstractItemView *view);
    ~AccessibleTable() override;

    // Null while the view is being destroyed.
    QAbstractItemView *view() const;
    // Null without a view or a model.
    QAbstractItemModel *model() const;
    // Returns an invalid index for a position outside the table.
    QModelIndex indexOfCell(int row, int column) const;
    int rowOfIndex(const QModelIndex &index) const;
    // The current cell if the view has the focus, or the first cell of its row if the view selects whole
    // rows. Otherwise an invalid index.
    QModelIndex focusIndex() const;

    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    // Never null.
    QAccessibleInterface *cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface *> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return int(selectedColumns().size()); }
    int selectedRowCount() const override { return int(selectedRows().size()); }
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int row) override;
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent *event) override;

private:
    int headerRows() const;
    int headerColumns() const;
    // The cell, or a header cell for row or column -1.
    QAccessibleInterface *member(int row, int column) const;
    void dropMembers();
    AccessibleCell *absentCell() const;

    mutable QHash<std::pair<int, int>, QAccessible::Id> m_members; // by row and column
    // The invalid cell for positions outside. It is registered like the others, because the bridge keeps
    // interfaces that it returned. 0 until it is needed.
    mutable QAccessible::Id m_absentCell = 0;
};
