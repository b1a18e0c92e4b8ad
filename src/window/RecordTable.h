#pragma once

#include "window/RecordTableModel.h"

#include <QTableView>

// The record list as a table. Its selection and that of the controller are one: a change of either goes to
// the other. An empty list says what to do.
class RecordTable : public QTableView
{
    Q_OBJECT

public:
    explicit RecordTable(QWidget *parent = nullptr);

    // Not owned; must outlive the table.
    void setRecords(Foundation::ArrayController *records);
    void redrawColumn(const QString &identifier);
    // What an empty list says.
    void setEmptyHint(const QString &hint);
    // A row that is not there is ignored.
    void scrollRowToVisible(qsizetype row);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showSelection();
    void takeSelection();

    Foundation::ArrayController *m_records = nullptr;
    RecordTableModel *m_model = nullptr;
    bool m_isShowingSelection = false;
    bool m_isTakingSelection = false;
    int m_scrollPosition = 0;
    QString m_emptyHint;
};
