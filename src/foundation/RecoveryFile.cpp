#include "foundation/RecoveryFile.h"

#include "foundation/DurableFile.h"

#include <QDir>
#include <QUuid>

namespace Foundation
{

namespace
{
const QString Suffix = QStringLiteral(".vexcards");
const QString LockSuffix = QStringLiteral(".lock");
} // namespace

RecoveryFile::RecoveryFile(const QString &path, std::unique_ptr<QLockFile> lock)
    : m_path(path)
    , m_lock(std::move(lock))
{
}

QString RecoveryFile::folder()
{
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    // Relative ones are to be ignored.
    const QString base =
        QDir::isAbsolutePath(state) ? state : QDir::homePath() + QStringLiteral("/.local/state");
    return base + QStringLiteral("/vexarel/autosaved");
}

std::unique_ptr<RecoveryFile> RecoveryFile::hold(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path + LockSuffix);
    // Only the death of its process frees a lock, however old it is.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0))
        return nullptr;
    return std::unique_ptr<RecoveryFile>(new RecoveryFile(path, std::move(lock)));
}

std::unique_ptr<RecoveryFile> RecoveryFile::create()
{
    if (!QDir().mkpath(folder()))
        return nullptr;
    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return hold(folder() + u'/' + QUuid::createUuid().toString(QUuid::WithoutBraces) + Suffix);
}

std::vector<std::unique_ptr<RecoveryFile>> RecoveryFile::takeAbandoned()
{
    std::vector<std::unique_ptr<RecoveryFile>> files;
    const QDir directory(folder());
    for (const QString &name :
         directory.entryList({u'*' + Suffix}, QDir::Files, QDir::Time | QDir::Reversed)) {
        if (auto file = hold(directory.filePath(name)))
            files.push_back(std::move(file));
    }
    return files;
}

bool RecoveryFile::write(const QByteArray &bytes, QString *reason)
{
    const FileWriteResult result = writeFileDurably(m_path, bytes);
    *reason = result.error;
    return result.succeeded();
}

void RecoveryFile::remove()
{
    QFile::remove(m_path);
}

} // namespace Foundation
