#include "window/list/RecordTable.h"

#include "window/list/RecordTableModel.h"

#include <QContextMenuEvent>
#include <QHeaderView>

namespace
{

constexpr int CategoryColumnWidth = 116;
constexpr int NarrowestColumn = 40;

} // namespace

RecordTable::RecordTable(QWidget *parent)
    : ArrayTable(parent)
{
    setSelectionMode(ExtendedSelection);
    horizontalHeader()->setMinimumSectionSize(NarrowestColumn);
    horizontalHeader()->setSectionsClickable(true);
    // No column shows a sort mark until the user has sorted.
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    connect(horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
            [this] { scrollRowToVisible(rows()->selectionIndex()); });
}

void RecordTable::setRecords(Foundation::ArrayController *records)
{
    setRows(records, new RecordTableModel(records, this));
    setColumnWidth(RecordTableModel::CategoryColumn, CategoryColumnWidth);
}

void RecordTable::keyboardSearch(const QString &typed)
{
    // The base class searches the column of the current cell.
    if (currentIndex().isValid() && currentIndex().column() != RecordTableModel::NameColumn)
        selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(RecordTableModel::NameColumn),
                                          QItemSelectionModel::NoUpdate);
    ArrayTable::keyboardSearch(typed);
}

void RecordTable::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && rows()->canRemove())
        Q_EMIT editRequested();
    else
        ArrayTable::keyPressEvent(event);
}

void RecordTable::mouseDoubleClickEvent(QMouseEvent *event)
{
    ArrayTable::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
        Q_EMIT editRequested();
}

void RecordTable::contextMenuEvent(QContextMenuEvent *event)
{
    // A menu that was opened by the keyboard appears below the selected row.
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    const QPoint place = visualRect(currentIndex()).bottomLeft();
    Q_EMIT contextMenuRequested(isByMouse ? event->globalPos() : viewport()->mapToGlobal(place));
}
