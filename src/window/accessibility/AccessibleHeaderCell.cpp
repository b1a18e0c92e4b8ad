#include "window/accessibility/AccessibleHeaderCell.h"

#include <QHeaderView>
#include <QTableView>
#include <QTreeView>

AccessibleHeaderCell::AccessibleHeaderCell(const AccessibleTable &table, Qt::Orientation orientation,
                                           int section)
    : m_table(table)
    , m_orientation(orientation)
    , m_section(section)
{
}

QHeaderView *AccessibleHeaderCell::header() const
{
    if (const auto *table = qobject_cast<const QTableView *>(m_table.view()))
        return m_orientation == Qt::Horizontal ? table->horizontalHeader() : table->verticalHeader();
    const auto *tree = qobject_cast<const QTreeView *>(m_table.view());
    return tree ? tree->header() : nullptr;
}

bool AccessibleHeaderCell::isValid() const
{
    return header() && m_section < header()->count();
}

QAccessibleInterface *AccessibleHeaderCell::parent() const
{
    return const_cast<AccessibleTable *>(&m_table);
}

QString AccessibleHeaderCell::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name)
        return {};
    return m_orientation == Qt::Horizontal ? m_table.columnDescription(m_section)
                                           : m_table.rowDescription(m_section);
}

QRect AccessibleHeaderCell::rect() const
{
    if (!isValid() || m_section < 0 || header()->isHidden())
        return {};
    const int start = header()->sectionViewportPosition(m_section);
    const int length = header()->sectionSize(m_section);
    const QRect inHeader = m_orientation == Qt::Horizontal ? QRect(start, 0, length, header()->height())
                                                           : QRect(0, start, header()->width(), length);
    return inHeader.translated(header()->viewport()->mapToGlobal(QPoint()));
}

QAccessible::Role AccessibleHeaderCell::role() const
{
    if (m_section < 0)
        return QAccessible::Pane;
    return m_orientation == Qt::Horizontal ? QAccessible::ColumnHeader : QAccessible::RowHeader;
}

QAccessible::State AccessibleHeaderCell::state() const
{
    QAccessible::State state;
    state.invisible = !isValid() || header()->isHidden();
    return state;
}
