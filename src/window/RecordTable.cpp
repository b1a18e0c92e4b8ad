#include "window/RecordTable.h"

#include "window/TextLabel.h"

#include <QHeaderView>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyledItemDelegate>

using Foundation::ArrayController;

namespace
{

constexpr int CategoryColumnWidth = 112;
constexpr int RoomBesideCells = 8; // in points, in headers and rows alike
constexpr int RoomAroundLines = 6;

// The desktop's style with more room at the left of headers and rows.
class RoomyStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        if (metric == PM_HeaderMargin)
            return RoomBesideCells;
        // The style adds one.
        return metric == PM_FocusFrameHMargin ? RoomBesideCells - 1
                                              : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

// The row's own background, and on it the label of the category.
class PillDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const auto pill = static_cast<const RecordTableModel *>(index.model())->pillOfRow(index.row());
        if (!pill)
            return;
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setFont(option.font);
        pill->paint(*painter, option.rect.adjusted(RoomBesideCells, 2, -RoomBesideCells, -2),
                    option.palette.color(isSelected ? QPalette::Highlight : QPalette::Base));
        painter->restore();
    }
};

} // namespace

RecordTable::RecordTable(QWidget *parent)
    : QTableView(parent)
{
    auto *roomyStyle = new RoomyStyle;
    roomyStyle->setParent(this);
    setStyle(roomyStyle);
    horizontalHeader()->setStyle(roomyStyle);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2 * RoomAroundLines);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    setItemDelegateForColumn(RecordTableModel::CategoryColumn, new PillDelegate(this));
}

void RecordTable::setRecords(ArrayController *records)
{
    m_records = records;
    m_model = new RecordTableModel(records, this);
    // The view scrolls to the top when all rows are new, though mostly they are the old ones.
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { m_scrollPosition = verticalScrollBar()->value(); });
    setModel(m_model);
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        updateGeometries();
        verticalScrollBar()->setValue(m_scrollPosition);
    });
    horizontalHeader()->setSectionResizeMode(RecordTableModel::NameColumn, QHeaderView::Stretch);
    setColumnWidth(RecordTableModel::CategoryColumn, CategoryColumnWidth);
    connect(records, &ArrayController::selectionChanged, this, &RecordTable::showSelection);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &RecordTable::takeSelection);
    showSelection();
}

void RecordTable::redrawColumn(const QString &identifier)
{
    m_model->redrawColumn(RecordTableModel::columnWithIdentifier(identifier));
}

void RecordTable::setEmptyHint(const QString &hint)
{
    m_emptyHint = hint;
    viewport()->update();
}

void RecordTable::scrollRowToVisible(qsizetype row)
{
    if (row >= 0 && row < m_model->rowCount())
        scrollTo(m_model->index(int(row), RecordTableModel::NameColumn));
}

void RecordTable::showSelection()
{
    if (m_isTakingSelection)
        return;
    const auto &indexes = m_records->selectionIndexes();
    QItemSelection selection;
    for (std::size_t i = 0; i < indexes.size();) {
        std::size_t end = i + 1; // Runs of neighbours are one range each.
        while (end < indexes.size() && indexes[end] == indexes[end - 1] + 1)
            ++end;
        selection.select(m_model->index(int(indexes[i]), 0),
                         m_model->index(int(indexes[end - 1]), RecordTableModel::ColumnCount - 1));
        i = end;
    }
    m_isShowingSelection = true;
    // The keyboard goes on from a row that is selected.
    const bool isCurrentSelected = currentIndex().isValid() && selection.contains(currentIndex());
    if (!indexes.empty() && !isCurrentSelected)
        selectionModel()->setCurrentIndex(m_model->index(int(indexes.front()), RecordTableModel::NameColumn),
                                          QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    m_isShowingSelection = false;
}

void RecordTable::takeSelection()
{
    if (m_isShowingSelection)
        return;
    std::vector<std::size_t> indexes;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            indexes.push_back(std::size_t(row));
    }
    m_isTakingSelection = true;
    m_records->setSelectionIndexes(std::move(indexes));
    m_isTakingSelection = false;
}

QModelIndex RecordTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // Rows are what is chosen here: their first and last cells are of no use.
    if (action == MoveHome || action == MoveEnd)
        return QTableView::moveCursor(action, modifiers | Qt::ControlModifier);
    return QTableView::moveCursor(action, modifiers);
}

void RecordTable::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (m_model && m_model->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(quietTextColor(palette()));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16), int(Qt::AlignCenter) | Qt::TextWordWrap,
                     m_emptyHint);
}
