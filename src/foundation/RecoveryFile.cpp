#include "foundation/RecoveryFile.h"

#include "foundation/DurableFile.h"

#include <QDir>
#include <QUuid>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace Foundation
{

namespace
{
const QString Suffix = QStringLiteral(".vexcards");
const QString LockSuffix = QStringLiteral(".lock");
} // namespace

RecoveryFile::RecoveryFile(const QString &path)
    : m_path(path)
    , m_lock(FileSystem::system())
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
    std::unique_ptr<RecoveryFile> file(new RecoveryFile(path));
    constexpr int Flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC;
    const QByteArray name = QFile::encodeName(path + LockSuffix);
    file->m_lock.reset(uninterrupted(
        [&] { return FileSystem::system().openAt(AT_FDCWD, name.constData(), Flags, S_IRUSR | S_IWUSR); }));
    const bool isHeld = file->m_lock.isOpen() && ::flock(file->m_lock.get(), LOCK_EX | LOCK_NB) == 0;
    return isHeld ? std::move(file) : nullptr;
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
    QFile::remove(m_path + LockSuffix);
}

} // namespace Foundation
