#pragma once

#include "window/accessibility/AccessibleTable.h"

class QHeaderView;

// A header of a column or row of an AccessibleTable. Section -1 is the corner between the two headers.
class AccessibleHeaderCell : public QAccessibleInterface
{
public:
    // The table is not owned and must outlive the cell.
    AccessibleHeaderCell(const AccessibleTable &table, Qt::Orientation orientation, int section);

    Qt::Orientation orientation() const { return m_orientation; }
    int section() const { return m_section; }

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_table.window(); }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

private:
    QHeaderView *header() const;

    const AccessibleTable &m_table;
    Qt::Orientation m_orientation;
    int m_section;
};
