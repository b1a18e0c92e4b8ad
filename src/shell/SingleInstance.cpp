#include "shell/SingleInstance.h"

#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>

#include <optional>
#include <sys/socket.h>

namespace
{

constexpr int Patience = 3000; // milliseconds; the other one may be saving
constexpr qint64 LongestMessage = 1 << 20;
constexpr char Taken = 1;

// Names of files, each with a NUL behind it, and one NUL more at the end of all.
QByteArray messageOfPaths(const QStringList &paths)
{
    QByteArray message;
    for (const QString &path : paths)
        message += QFile::encodeName(path) + '\0';
    return message + '\0';
}

// Nothing as long as the end has not come.
std::optional<QStringList> pathsOfMessage(const QByteArray &message)
{
    const bool isEmpty = message == QByteArray(1, '\0');
    if (!isEmpty && !message.endsWith(QByteArray(2, '\0')))
        return std::nullopt;
    QStringList paths;
    for (const QByteArray &name : message.split('\0')) {
        if (!name.isEmpty())
            paths.append(QFile::decodeName(name));
    }
    return paths;
}

// Whether the other side is gone; all that it sent has been read.
bool hasHungUp(const QLocalSocket &socket)
{
    char any = 0;
    return ::recv(int(socket.socketDescriptor()), &any, 1, MSG_PEEK | MSG_DONTWAIT) == 0;
}

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

SingleInstance::Answer SingleInstance::sendTo(const QString &name, const QStringList &paths)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(Patience)) {
        const bool isNobodyThere = socket.error() == QLocalSocket::ServerNotFoundError ||
                                   socket.error() == QLocalSocket::ConnectionRefusedError;
        return isNobodyThere ? Answer::Nobody : Answer::Busy;
    }
    socket.write(messageOfPaths(paths));
    while (socket.bytesAvailable() == 0) {
        if (!socket.waitForReadyRead(Patience))
            return Answer::Busy;
    }
    return socket.read(1) == QByteArray(1, Taken) ? Answer::Taken : Answer::Busy;
}

bool SingleInstance::handOver(const QStringList &paths)
{
    QStringList absolutePaths;
    for (const QString &path : paths)
        absolutePaths.append(QFileInfo(path).absoluteFilePath());
    const QString name = socketName();
    switch (sendTo(name, absolutePaths)) {
    case Answer::Taken:
        return true;
    case Answer::Nobody:
        // What a crashed one left behind is in the way.
        QLocalServer::removeServer(name);
        m_server.listen(name);
        return false;
    case Answer::Busy:
        break; // It stays the first one, and the files are opened here.
    }
    return false;
}

void SingleInstance::takeConnection()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { takeMessage(socket); });
    }
}

void SingleInstance::takeMessage(QLocalSocket *socket)
{
    const auto paths = pathsOfMessage(socket->peek(LongestMessage));
    if (!paths) {
        if (socket->bytesAvailable() >= LongestMessage)
            socket->abort();
        return; // The rest is still to come.
    }
    socket->readAll();
    if (hasHungUp(*socket))
        return; // It lost its patience, and has opened the files itself.
    socket->write(QByteArray(1, Taken));
    socket->flush();
    socket->disconnectFromServer();
    Q_EMIT startedAgain(*paths);
}
