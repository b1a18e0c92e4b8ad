#pragma once

#include "window/controls/ArrayTable.h"

// The record list. A click on a column's head puts the list in its order, a second one turns it round;
// letters typed go to the next contact whose name begins so.
class RecordTable : public ArrayTable
{
    Q_OBJECT

public:
    explicit RecordTable(QWidget *parent = nullptr);

    // Not owned; must outlive the table.
    void setRecords(Foundation::ArrayController *records);

    void keyboardSearch(const QString &typed) override;

Q_SIGNALS:
    // The user wants to change the selected contact: Return or a double click.
    void editRequested();
    // By key or mouse; the place is on the screen.
    void contextMenuRequested(const QPoint &place);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};
