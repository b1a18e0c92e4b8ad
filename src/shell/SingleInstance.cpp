#include "shell/SingleInstance.h"

#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>

#include <optional>
#include <sys/socket.h>

namespace
{

constexpr int Patience = 3000; // in milliseconds; the other instance may be saving
constexpr qint64 LongestMessage = 1 << 20;
constexpr char Taken = 1;

// The paths, each followed by a null character, and one more null character at the end.
QByteArray messageOfPaths(const QStringList &paths)
{
    QByteArray message;
    for (const QString &path : paths)
        message += QFile::encodeName(path) + '\0';
    return message + '\0';
}

// Returns nothing if the message is incomplete.
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

// Whether the other side has closed the connection. All that it sent must have been read.
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
        // Removes the socket of a crashed instance.
        QLocalServer::removeServer(name);
        (void)m_server.listen(name); // Without it every start is one of its own.
        return false;
    case Answer::Busy:
        break; // The other instance keeps the socket; the files are opened in this one.
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
        return; // The message is incomplete.
    }
    socket->readAll();
    if (hasHungUp(*socket))
        return; // The other side did not wait, and opens the files itself.
    socket->write(QByteArray(1, Taken));
    socket->flush();
    socket->disconnectFromServer();
    Q_EMIT startedAgain(*paths);
}
