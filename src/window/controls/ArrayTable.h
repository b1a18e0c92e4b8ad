#pragma once

#include "window/controls/ArrayTableModel.h"

#include <QTableView>

// A controller's rows as a table. Its selection and that of the controller are one: a change of either goes
// to the other. An empty table says what to do.
class ArrayTable : public QTableView
{
    Q_OBJECT

public:
    explicit ArrayTable(QWidget *parent = nullptr);

    // The height of the cells; rows have some room between them.
    int rowHeight() const;
    // The cell in the room that the view gives it, which is wider and higher by the room between cells.
    static QRectF cellInRoom(const QRect &room);
    static QColor backgroundOfCell(const QStyleOptionViewItem &option);

    void redrawColumn(const QString &identifier);
    // What an empty table says.
    const QString &emptyHint() const { return m_emptyHint; }
    void setEmptyHint(const QString &hint);
    // A row that is not there is ignored.
    void scrollRowToVisible(qsizetype row);

protected:
    // Both are not owned and must outlive the table. Once.
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
