#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QModelIndex>

class AccessibleCell;
class QAbstractItemModel;
class QAbstractItemView;

// A table, list or tree for assistive technology, in place of the toolkit's class, which gives a null cell
// for a position outside the table. The bridge uses that null pointer, so that any program on the
// accessibility bus could crash the application. Here any number may be asked for: cellAt() gives an invalid
// cell in that case.
//
// Cells are made when they are asked for and die when rows come or go. The children are numbered as the
// toolkit's views number them in their events: row by row, headers included, hidden ones too. The rows of a
// tree are those that its expanded items show.
class AccessibleTable : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit AccessibleTable(QAbstractItemView *view);
    ~AccessibleTable() override;

    // Null while the view is being destroyed.
    QAbstractItemView *view() const;
    // Null without a view or a model.
    QAbstractItemModel *model() const;
    // Invalid outside the table.
    QModelIndex indexOfCell(int row, int column) const;
    int rowOfIndex(const QModelIndex &index) const;
    // The current cell while the view has the focus; the first of its row where whole rows are selected.
    // Otherwise invalid.
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
    // A cell, or the header cell in row or column -1.
    QAccessibleInterface *member(int row, int column) const;
    void dropMembers();
    AccessibleCell *absentCell() const;

    mutable QHash<std::pair<int, int>, QAccessible::Id> m_members; // by row and column
    // Registered with the toolkit as the others are, since the bridge keeps an interface that it has handed
    // out. 0 until it is asked for.
    mutable QAccessible::Id m_absentCell = 0;
};
