#pragma once

#include <QDialog>
#include <QPointer>

#include <deque>
#include <functional>

// The sheets and alerts of one window: dialogs that block only that window. One is open at a time. Others
// wait until it is closed and its `ended` function was called, which happens on a later turn of the event
// loop.
//
// While the window is locked, the queue shows only dialogs that were begun with Over::LockedWindow.
class SheetQueue : public QObject
{
    Q_OBJECT

public:
    using DialogMaker = std::function<QDialog *(QWidget *parent)>;
    using Ended = std::function<void(int result)>;

    explicit SheetQueue(QWidget *window);

    enum class Over { OpenWindow, LockedWindow };

    // Opens a dialog, or lets it wait. `name` is null for a dialog that is not ended by name. `make` is
    // called when the dialog can be opened; the queue owns the dialog. If the window is locked and `over` is
    // OpenWindow, the dialog is not made, and `ended` gets a result that no button has.
    void begin(const QString &name, DialogMaker make, Ended ended, Over over = Over::OpenWindow);
    // Ends the dialog with that name. Does nothing if it is not open.
    void end(const QString &name, int result);
    // Ends the open dialog and all waiting ones, with a result that no button has.
    void endAll();
    // Locking also calls endAll().
    void setLocked(bool locked);
    bool hasSheet() const { return !m_dialog.isNull(); }
    // Closes the open dialog and removes all waiting ones, without calling any `ended` function. For a window
    // that closes.
    void drop();

Q_SIGNALS:
    // A dialog was opened or closed.
    void changed();

private:
    struct Sheet
    {
        QString name;
        DialogMaker make;
        Ended ended;
    };

    void beginNext();
    void endCurrent();
    void finished(int result);
    // Calls `ended` of a dialog that was never shown, on a later turn of the event loop.
    void tellLater(Ended ended);

    QWidget *m_window;
    std::deque<Sheet> m_waiting;
    Sheet m_current;
    QPointer<QDialog> m_dialog;
    bool m_isBusy = false; // from the opening of a dialog until its `ended` function has returned
    bool m_isLocked = false;
    bool m_isDropped = false;
};
