#pragma once

#include "window/controls/ArrayTable.h"

// The table of the records. A click on a column head sorts by that column, a second click reverses the order.
// Typing selects the next contact whose name begins with the typed letters.
class RecordTable : public ArrayTable
{
    Q_OBJECT

public:
    explicit RecordTable(QWidget *parent = nullptr);

    // `records` is not owned and must outlive the table.
    void setRecords(Foundation::ArrayController *records);

    void keyboardSearch(const QString &typed) override;

Q_SIGNALS:
    // The user pressed Return or double-clicked to edit the selected contact.
    void editRequested();
    // The context menu was requested by key or mouse. `place` is in screen coordinates.
    void contextMenuRequested(const QPoint &place);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};
