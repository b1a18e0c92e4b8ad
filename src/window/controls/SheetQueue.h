#pragma once

#include <QDialog>
#include <QPointer>

#include <deque>
#include <functional>

// The sheets and alerts of one window: dialogs that block only that window. One stands at a time; others wait
// until it has gone and its end has been told. Ends are told on a later turn of the event loop.
//
// While the window is locked, the queue shows only dialogs begun with Over::LockedWindow.
class SheetQueue : public QObject
{
    Q_OBJECT

public:
    using DialogMaker = std::function<QDialog *(QWidget *parent)>;
    using Ended = std::function<void(int result)>;

    explicit SheetQueue(QWidget *window);

    enum class Over { OpenWindow, LockedWindow };

    // The name is null for what nobody ends by name. The maker is called when the turn has come; the queue
    // owns the dialog. A sheet that needs an open window and meets a locked one ends with the result of no
    // button, without having been made.
    void begin(const QString &name, DialogMaker make, Ended ended, Over over = Over::OpenWindow);
    // Nothing happens unless that sheet stands.
    void end(const QString &name, int result);
    // Ends the one that stands and all that wait, with the result of no button.
    void endAll();
    // Locking ends all.
    void setLocked(bool locked);
    bool hasSheet() const { return !m_dialog.isNull(); }
    // Takes away the standing one and all that wait; no end is told any more.
    void drop();

Q_SIGNALS:
    // A sheet has come or gone.
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
    // Tells the end of a sheet that was never shown.
    void tellLater(Ended ended);

    QWidget *m_window;
    std::deque<Sheet> m_waiting;
    Sheet m_current;
    QPointer<QDialog> m_dialog;
    bool m_isBusy = false; // from the beginning of a sheet until its end has been told
    bool m_isLocked = false;
    bool m_isDropped = false;
};
