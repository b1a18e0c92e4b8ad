#pragma once

#include <QObject>

class QSocketNotifier;

namespace Foundation
{

// Sends terminationRequested(), from the event loop, when the process receives SIGTERM, SIGHUP or SIGINT. A
// second signal of the same kind ends the process immediately. Only one object of this class may exist at a
// time.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void terminationRequested();

private:
    void takeSignal();

    QSocketNotifier *m_notifier = nullptr;
};

} // namespace Foundation
