#include "window/controls/ArrayTable.h"

#include "window/controls/TextLabel.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>

using Foundation::ArrayController;

namespace
{

constexpr int RoomBesideCells = 8; // in points, in headers and rows
constexpr int RoomAroundLines = 3;
constexpr int RoomBetweenRows = 6;

// The style of the desktop with more space at the left of headers and rows.
class RoomyStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        if (metric == PM_HeaderMargin)
            return RoomBesideCells;
        // The style adds 1.
        return metric == PM_FocusFrameHMargin ? RoomBesideCells - 1
                                              : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

ArrayTable::ArrayTable(QWidget *parent)
    : QTableView(parent)
{
    auto *roomyStyle = new RoomyStyle;
    roomyStyle->setParent(this);
    setStyle(roomyStyle);
    horizontalHeader()->setStyle(roomyStyle);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    setRowHeight();
}

int ArrayTable::rowHeight() const
{
    return fontMetrics().height() + 2 * RoomAroundLines;
}

QRectF ArrayTable::cellInRoom(const QRect &room)
{
    return QRectF(room).adjusted(RoomBesideCells - 2, RoomBetweenRows / 2.0, -RoomBesideCells / 2.0,
                                 -RoomBetweenRows / 2.0);
}

QColor ArrayTable::backgroundOfCell(const QStyleOptionViewItem &option)
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    return option.palette.color(isSelected ? QPalette::Highlight : QPalette::Base);
}

void ArrayTable::setRowHeight()
{
    verticalHeader()->setMinimumSectionSize(rowHeight() + RoomBetweenRows);
    verticalHeader()->setDefaultSectionSize(rowHeight() + RoomBetweenRows);
}

void ArrayTable::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setRowHeight();
}

void ArrayTable::setRows(ArrayController *rows, ArrayTableModel *model)
{
    m_rows = rows;
    m_model = model;
    // A reset of the model scrolls the view to the top, although most rows are usually the same.
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { m_scrollPosition = verticalScrollBar()->value(); });
    setModel(m_model);
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        updateGeometries();
        verticalScrollBar()->setValue(m_scrollPosition);
    });
    horizontalHeader()->setSectionResizeMode(m_model->columnCount() - 1, QHeaderView::Stretch);
    connect(rows, &ArrayController::selectionChanged, this, &ArrayTable::showSelection);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &ArrayTable::takeSelection);
    showSelection();
}

void ArrayTable::redrawColumn(const QString &identifier)
{
    m_model->redrawColumn(identifier);
}

void ArrayTable::setEmptyHint(const QString &hint)
{
    m_emptyHint = hint;
    viewport()->update();
}

void ArrayTable::scrollRowToVisible(qsizetype row)
{
    if (row >= 0 && row < m_model->rowCount())
        scrollTo(m_model->index(int(row), m_model->columnCount() - 1));
}

void ArrayTable::showSelection()
{
    if (m_isTakingSelection)
        return;
    const auto &indexes = m_rows->selectionIndexes();
    const int lastColumn = m_model->columnCount() - 1;
    QItemSelection selection;
    for (std::size_t i = 0; i < indexes.size();) {
        std::size_t end = i + 1; // Consecutive rows form one range.
        while (end < indexes.size() && indexes[end] == indexes[end - 1] + 1)
            ++end;
        selection.select(m_model->index(int(indexes[i]), 0),
                         m_model->index(int(indexes[end - 1]), lastColumn));
        i = end;
    }
    m_isShowingSelection = true;
    // The current row for the keyboard must be a selected row.
    const bool isCurrentSelected = currentIndex().isValid() && selection.contains(currentIndex());
    if (!indexes.empty() && !isCurrentSelected)
        selectionModel()->setCurrentIndex(m_model->index(int(indexes.front()), lastColumn),
                                          QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    m_isShowingSelection = false;
}

void ArrayTable::takeSelection()
{
    if (m_isShowingSelection)
        return;
    std::vector<std::size_t> indexes;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            indexes.push_back(std::size_t(row));
    }
    m_isTakingSelection = true;
    m_rows->setSelectionIndexes(std::move(indexes));
    m_isTakingSelection = false;
}

QModelIndex ArrayTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // The table selects whole rows, so Home and End go to the first and last row instead of the first and
    // last cell.
    if (action == MoveHome || action == MoveEnd)
        return QTableView::moveCursor(action, modifiers | Qt::ControlModifier);
    return QTableView::moveCursor(action, modifiers);
}

void ArrayTable::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (m_model && m_model->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(quietTextColor(palette()));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16), int(Qt::AlignCenter) | Qt::TextWordWrap,
                     m_emptyHint);
}
