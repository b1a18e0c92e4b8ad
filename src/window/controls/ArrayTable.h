#pragma once

#include "window/controls/ArrayTableModel.h"

#include <QTableView>

// A table of the rows of an ArrayController. Table and controller always have the same selection. An empty
// table shows a hint.
class ArrayTable : public QTableView
{
    Q_OBJECT

public:
    explicit ArrayTable(QWidget *parent = nullptr);

    // The height of a cell in points, without the space between rows.
    int rowHeight() const;
    // The rectangle of a cell without the space between cells, inside the rectangle `room` from the view.
    static QRectF cellInRoom(const QRect &room);
    static QColor backgroundOfCell(const QStyleOptionViewItem &option);

    void redrawColumn(const QString &identifier);
    // The text that an empty table shows.
    const QString &emptyHint() const { return m_emptyHint; }
    void setEmptyHint(const QString &hint);
    // Ignores a row that does not exist.
    void scrollRowToVisible(qsizetype row);

protected:
    // Must be called once. The arguments are not owned and must outlive the table.
    void setRows(Foundation::ArrayController *rows, ArrayTableModel *model);
    Foundation::ArrayController *rows() const { return m_rows; }

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void setRowHeight();
    void showSelection();
    void takeSelection();

    Foundation::ArrayController *m_rows = nullptr;
    ArrayTableModel *m_model = nullptr;
    bool m_isShowingSelection = false;
    bool m_isTakingSelection = false;
    int m_scrollPosition = 0;
    QString m_emptyHint;
};
