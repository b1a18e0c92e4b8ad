#pragma once

#include <QDialog>
#include <QPointer>

#include <deque>
#include <functional>

// The sheets and alerts of one window: dialogs that block only that window. One stands at a time; others wait
// until it has gone and its end has been told. Ends are told on a later turn of the event loop.
class SheetQueue : public QObject
{
    Q_OBJECT

public:
    using DialogMaker = std::function<QDialog *(QWidget *parent)>;
    using Ended = std::function<void(int result)>;

    explicit SheetQueue(QWidget *window);

    // The name is null for what nobody ends by name. The maker is called when the turn has come; the queue
    // owns the dialog.
    void begin(const QString &name, DialogMaker make, Ended ended);
    // Nothing happens unless that sheet stands.
    void end(const QString &name, int result);
    // Ends the one that stands, with the result of no button.
    void endCurrent();
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
    void finished(int result);

    QWidget *m_window;
    std::deque<Sheet> m_waiting;
    Sheet m_current;
    QPointer<QDialog> m_dialog;
    bool m_isBusy = false; // from the beginning of a sheet until its end has been told
};
