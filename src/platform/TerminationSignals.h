#pragma once

#include <QObject>

class QSocketNotifier;

namespace Foundation
{

// Tells, on a turn of the event loop, that the system wants the process to end: SIGTERM, SIGHUP or SIGINT. A
// second one ends it at once. There is one of these at a time.
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
