#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>

class QLocalSocket;

// Ensures that each user has only one running application: a second start passes its files to the first one
// and ends. They communicate through a socket in the runtime folder of the user, which other users cannot
// open.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(QObject *parent = nullptr);

    // Returns true if another instance has taken the paths; the caller should then quit. Returns false if
    // this is now the only instance, or if the other one does not answer, in which case both run. Blocks for
    // some seconds at most.
    [[nodiscard]] bool handOver(const QStringList &paths);

Q_SIGNALS:
    // The application was started again with these files, as absolute paths. The list may be empty.
    void startedAgain(const QStringList &paths);

private:
    enum class Answer { Taken, Nobody, Busy };

    static QString socketName();
    static Answer sendTo(const QString &name, const QStringList &paths);
    void takeConnection();
    void takeMessage(QLocalSocket *socket);

    QLocalServer m_server;
};
