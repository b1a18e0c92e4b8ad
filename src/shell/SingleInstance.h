#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>

class QLocalSocket;

// One running application for each user: a second start hands its files to the first one and ends. They meet
// at a socket in the user's runtime folder, which nobody else can open.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(QObject *parent = nullptr);

    // True if another instance runs and has taken the paths. Otherwise this is the one from here on, unless
    // another runs that does not answer: then both run.
    bool handOver(const QStringList &paths);

Q_SIGNALS:
    // Somebody started the application again, with these files; absolute paths, perhaps none.
    void startedAgain(const QStringList &paths);

private:
    enum class Answer { Taken, Nobody, Busy };

    static QString socketName();
    static Answer sendTo(const QString &name, const QStringList &paths);
    void takeConnection();
    void takeMessage(QLocalSocket *socket);

    QLocalServer m_server;
};
