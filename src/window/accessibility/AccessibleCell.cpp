#include "window/accessibility/AccessibleCell.h"

#include <QAbstractItemView>

AccessibleCell::AccessibleCell(const AccessibleTable &table, const QModelIndex &index)
    : m_table(table)
    , m_index(index)
{
}

bool AccessibleCell::isValid() const
{
    return m_index.isValid() && m_index.model() == m_table.model();
}

QAccessibleInterface *AccessibleCell::table() const
{
    return const_cast<AccessibleTable *>(&m_table);
}

QString AccessibleCell::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    if (kind == QAccessible::Description)
        return m_index.data(Qt::AccessibleDescriptionRole).toString();
    if (kind != QAccessible::Name)
        return {};
    const QString spoken = m_index.data(Qt::AccessibleTextRole).toString();
    return spoken.isEmpty() ? m_index.data(Qt::DisplayRole).toString() : spoken;
}

QRect AccessibleCell::rect() const
{
    if (!isValid())
        return {};
    const QRect inViewport = m_table.view()->visualRect(m_index);
    return inViewport.isEmpty() ? QRect()
                                : inViewport.translated(m_table.view()->viewport()->mapToGlobal(QPoint()));
}

QAccessible::Role AccessibleCell::role() const
{
    switch (m_table.role()) {
    case QAccessible::List:
        return QAccessible::ListItem;
    case QAccessible::Tree:
        return QAccessible::TreeItem;
    default:
        return QAccessible::Cell;
    }
}

QAccessible::State AccessibleCell::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QAbstractItemView *view = m_table.view();
    const QRect shown = view->viewport()->rect().intersected(view->visualRect(m_index));
    state.invisible = !view->isVisible() || shown.isEmpty();
    state.offscreen = shown.isEmpty();
    const Qt::ItemFlags flags = m_index.flags();
    state.disabled = !flags.testFlag(Qt::ItemIsEnabled);
    state.selectable = flags.testFlag(Qt::ItemIsSelectable);
    state.selected = isSelected();
    state.focusable = true;
    state.focused = m_table.focusIndex() == m_index;
    if (flags.testFlag(Qt::ItemIsUserCheckable)) {
        state.checkable = true;
        state.checked = m_index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    return state;
}

void *AccessibleCell::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface *>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface *>(this);
    return nullptr;
}

bool AccessibleCell::isSelected() const
{
    return isValid() && m_table.view()->selectionModel()->isSelected(m_index);
}

QList<QAccessibleInterface *> AccessibleCell::columnHeaderCells() const
{
    // The first row of children is the horizontal header, which a list does not have.
    QAccessibleInterface *head = nullptr;
    if (isValid() && m_table.role() != QAccessible::List) {
        const int firstHead = m_table.role() == QAccessible::Table ? 1 : 0;
        head = m_table.child(firstHead + columnIndex());
    }
    return head ? QList{head} : QList<QAccessibleInterface *>();
}

int AccessibleCell::columnIndex() const
{
    if (!isValid())
        return -1;
    return m_table.role() == QAccessible::List ? 0 : m_index.column();
}

int AccessibleCell::rowIndex() const
{
    return isValid() ? m_table.rowOfIndex(m_index) : -1;
}

QStringList AccessibleCell::actionNames() const
{
    return isValid() && m_index.flags().testFlag(Qt::ItemIsSelectable) ? QStringList{toggleAction()}
                                                                       : QStringList();
}

void AccessibleCell::doAction(const QString &name)
{
    if (!isValid() || name != toggleAction())
        return;
    // Must be the last statement, because selecting a row may delete this cell.
    auto &table = const_cast<AccessibleTable &>(m_table);
    if (isSelected())
        table.unselectRow(rowIndex());
    else
        table.selectRow(rowIndex());
}
