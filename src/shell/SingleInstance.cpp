#include "shell/SingleInstance.h"

#include <QDataStream>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>

namespace
{

constexpr int Patience = 3000; // milliseconds; the other one may be saving
constexpr qint64 LongestMessage = 1 << 20;
constexpr char Taken = 1;

} // namespace

SingleInstance::SingleInstance(QObject *parent)
    : QObject(parent)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::takeConnection);
}

QString SingleInstance::socketName()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
           QStringLiteral("/vexarel.socket");
}

bool SingleInstance::sendTo(const QString &name, const QStringList &paths) const
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(Patience))
        return false;
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream << paths;
    socket.write(message);
    // One that hangs takes nothing: then the files are opened here.
    while (socket.bytesAvailable() == 0) {
        if (!socket.waitForReadyRead(Patience))
            return false;
    }
    return socket.read(1) == QByteArray(1, Taken);
}

bool SingleInstance::handOver(const QStringList &paths)
{
    QStringList absolutePaths;
    for (const QString &path : paths)
        absolutePaths.append(QFileInfo(path).absoluteFilePath());
    const QString name = socketName();
    if (sendTo(name, absolutePaths))
        return true;
    // What a crashed one left behind is in the way.
    QLocalServer::removeServer(name);
    m_server.listen(name);
    return false;
}

void SingleInstance::takeConnection()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (socket->bytesAvailable() > LongestMessage) {
                socket->abort();
                return;
            }
            QDataStream stream(socket);
            stream.startTransaction();
            QStringList paths;
            stream >> paths;
            if (!stream.commitTransaction())
                return; // The rest is still to come.
            socket->write(QByteArray(1, Taken));
            socket->flush();
            socket->disconnectFromServer();
            Q_EMIT startedAgain(paths);
        });
    }
}
