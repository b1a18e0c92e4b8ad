#pragma once

#include "window/accessibility/AccessibleTable.h"

#include <QPersistentModelIndex>

// A cell of an AccessibleTable. Its name is the model's text for assistive technology, or else the shown
// text. The cell becomes invalid when its row is removed, and then has no text, no position and no parent
// index.
class AccessibleCell : public QAccessibleInterface,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface
{
public:
    // The table is not owned and must outlive the cell.
    AccessibleCell(const AccessibleTable &table, const QModelIndex &index);

    QModelIndex index() const { return m_index; }

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_table.window(); }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override { return table(); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface *> columnHeaderCells() const override;
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    // Both are -1 for an invalid cell.
    int columnIndex() const override;
    int rowIndex() const override;
    int columnExtent() const override { return isValid() ? 1 : 0; }
    int rowExtent() const override { return isValid() ? 1 : 0; }
    QAccessibleInterface *table() const override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    const AccessibleTable &m_table;
    QPersistentModelIndex m_index;
};
