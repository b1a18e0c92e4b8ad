#include "window/accessibility/AccessibleTable.h"

#include "window/accessibility/AccessibleCell.h"
#include "window/accessibility/AccessibleHeaderCell.h"
#include "window/controls/ArrayTable.h"

#include <QListView>
#include <QTreeView>

namespace
{

QAccessible::Role roleOfView(const QAbstractItemView *view)
{
    if (qobject_cast<const QListView *>(view))
        return QAccessible::List;
    return qobject_cast<const QTreeView *>(view) ? QAccessible::Tree : QAccessible::Table;
}

// Returns null if the rows of the view are those of its model, so that it is no tree.
const QTreeView *branchingTree(const QAbstractItemView *view)
{
    const auto *tree = qobject_cast<const QTreeView *>(view);
    return tree && tree->itemsExpandable() ? tree : nullptr;
}

void appendShownRows(const QTreeView &tree, const QModelIndex &parent, QModelIndexList &rows)
{
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
        rows.append(tree.model()->index(row, 0, parent));
        if (tree.isExpanded(rows.last()))
            appendShownRows(tree, QModelIndex(rows.last()), rows);
    }
}

QModelIndexList shownRows(const QTreeView &tree)
{
    QModelIndexList rows;
    appendShownRows(tree, tree.rootIndex(), rows);
    return rows;
}

} // namespace

AccessibleTable::AccessibleTable(QAbstractItemView *view)
    : QAccessibleWidget(view, roleOfView(view))
{
}

AccessibleTable::~AccessibleTable()
{
    dropMembers();
    if (m_absentCell != 0)
        QAccessible::deleteAccessibleInterface(m_absentCell);
}

QAbstractItemView *AccessibleTable::view() const
{
    return qobject_cast<QAbstractItemView *>(object());
}

QAbstractItemModel *AccessibleTable::model() const
{
    return view() ? view()->model() : nullptr;
}

int AccessibleTable::rowCount() const
{
    if (!model())
        return 0;
    const QTreeView *tree = branchingTree(view());
    return tree ? int(shownRows(*tree).size()) : model()->rowCount(view()->rootIndex());
}

int AccessibleTable::columnCount() const
{
    if (!model())
        return 0;
    return role() == QAccessible::List ? 1 : model()->columnCount(view()->rootIndex());
}

QModelIndex AccessibleTable::indexOfCell(int row, int column) const
{
    if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount())
        return {};
    if (const QTreeView *tree = branchingTree(view()))
        return shownRows(*tree).at(row).siblingAtColumn(column);
    const auto *list = qobject_cast<const QListView *>(view());
    return model()->index(row, list ? list->modelColumn() : column, view()->rootIndex());
}

int AccessibleTable::rowOfIndex(const QModelIndex &index) const
{
    const QTreeView *tree = branchingTree(view());
    return tree ? int(shownRows(*tree).indexOf(index.siblingAtColumn(0))) : index.row();
}

QModelIndex AccessibleTable::focusIndex() const
{
    if (!model() || !view()->hasFocus())
        return {};
    const QModelIndex current = view()->currentIndex();
    const bool isRow =
        view()->selectionBehavior() == QAbstractItemView::SelectRows && role() != QAccessible::List;
    return isRow ? current.siblingAtColumn(0) : current;
}

QString AccessibleTable::text(QAccessible::Text kind) const
{
    const auto *table = qobject_cast<const ArrayTable *>(view());
    if (kind == QAccessible::Description && table && rowCount() == 0)
        return table->emptyHint();
    return QAccessibleWidget::text(kind);
}

int AccessibleTable::headerRows() const
{
    return role() == QAccessible::List ? 0 : 1;
}

int AccessibleTable::headerColumns() const
{
    return role() == QAccessible::Table ? 1 : 0;
}

int AccessibleTable::childCount() const
{
    return (rowCount() + headerRows()) * (columnCount() + headerColumns());
}

int AccessibleTable::indexOfChild(const QAccessibleInterface *child) const
{
    int row = -1;
    int column = -1;
    if (const auto *cell = dynamic_cast<const AccessibleCell *>(child)) {
        row = cell->rowIndex();
        column = cell->columnIndex();
        if (row < 0)
            return -1;
    } else if (const auto *head = dynamic_cast<const AccessibleHeaderCell *>(child)) {
        (head->orientation() == Qt::Horizontal ? column : row) = head->section();
    } else {
        return -1;
    }
    return (row + headerRows()) * (columnCount() + headerColumns()) + column + headerColumns();
}

QAccessibleInterface *AccessibleTable::child(int index) const
{
    const int width = columnCount() + headerColumns();
    if (index < 0 || width == 0 || index >= childCount())
        return nullptr;
    return member(index / width - headerRows(), index % width - headerColumns());
}

QAccessibleInterface *AccessibleTable::childAt(int x, int y) const
{
    if (!model())
        return nullptr;
    const QModelIndex index = view()->indexAt(view()->viewport()->mapFromGlobal(QPoint(x, y)));
    if (!index.isValid())
        return nullptr;
    return member(rowOfIndex(index), role() == QAccessible::List ? 0 : index.column());
}

QAccessibleInterface *AccessibleTable::focusChild() const
{
    const QModelIndex index = focusIndex();
    if (!index.isValid())
        return nullptr;
    return member(rowOfIndex(index), role() == QAccessible::List ? 0 : index.column());
}

void *AccessibleTable::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface *AccessibleTable::cellAt(int row, int column) const
{
    return indexOfCell(row, column).isValid() ? member(row, column) : absentCell();
}

AccessibleCell *AccessibleTable::absentCell() const
{
    if (QAccessibleInterface *known = QAccessible::accessibleInterface(m_absentCell))
        return static_cast<AccessibleCell *>(known);
    auto *made = new AccessibleCell(*this, QModelIndex());
    m_absentCell = QAccessible::registerAccessibleInterface(made);
    return made;
}

QAccessibleInterface *AccessibleTable::member(int row, int column) const
{
    QAccessible::Id &id = m_members[{row, column}];
    QAccessibleInterface *known = id != 0 ? QAccessible::accessibleInterface(id) : nullptr;
    const QModelIndex index = indexOfCell(row, column);
    const auto *knownCell = dynamic_cast<const AccessibleCell *>(known);
    if (known && (!knownCell || knownCell->index() == index))
        return known;
    if (known) // A sorted model keeps its rows, but at other positions.
        QAccessible::deleteAccessibleInterface(id);
    QAccessibleInterface *made = nullptr;
    if (row < 0 || column < 0) {
        const Qt::Orientation orientation = row < 0 ? Qt::Horizontal : Qt::Vertical;
        made = new AccessibleHeaderCell(*this, orientation, row < 0 ? column : row);
    } else {
        made = new AccessibleCell(*this, index);
    }
    id = QAccessible::registerAccessibleInterface(made);
    return made;
}

void AccessibleTable::dropMembers()
{
    for (const QAccessible::Id id : std::exchange(m_members, {}))
        QAccessible::deleteAccessibleInterface(id);
}

void AccessibleTable::modelChange(QAccessibleTableModelChangeEvent *event)
{
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged)
        dropMembers();
}

QString AccessibleTable::columnDescription(int column) const
{
    if (column < 0 || column >= columnCount())
        return {};
    return model()->headerData(column, Qt::Horizontal).toString();
}

QString AccessibleTable::rowDescription(int row) const
{
    if (row < 0 || row >= rowCount())
        return {};
    return model()->headerData(row, Qt::Vertical).toString();
}

int AccessibleTable::selectedCellCount() const
{
    return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface *> AccessibleTable::selectedCells() const
{
    QList<QAccessibleInterface *> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column)
            cells.append(member(row, column));
    }
    return cells;
}

QList<int> AccessibleTable::selectedRows() const
{
    QList<int> rows;
    if (!model() || !view()->selectionModel())
        return rows;
    for (const QItemSelectionRange &range : view()->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(rowOfIndex(model()->index(row, range.left(), range.parent())));
    }
    return rows;
}

bool AccessibleTable::isRowSelected(int row) const
{
    const QModelIndex index = indexOfCell(row, 0);
    return index.isValid() && view()->selectionModel()->isSelected(index);
}

bool AccessibleTable::selectRow(int row)
{
    const QModelIndex index = indexOfCell(row, 0);
    if (!index.isValid() || view()->selectionMode() == QAbstractItemView::NoSelection)
        return false;
    const bool isSingle = view()->selectionMode() == QAbstractItemView::SingleSelection;
    view()->selectionModel()->select(
        index, QItemSelectionModel::Rows |
                   (isSingle ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Select));
    return true;
}

bool AccessibleTable::unselectRow(int row)
{
    const QModelIndex index = indexOfCell(row, 0);
    if (!index.isValid() || view()->selectionMode() == QAbstractItemView::SingleSelection)
        return false;
    view()->selectionModel()->select(index, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    return true;
}
