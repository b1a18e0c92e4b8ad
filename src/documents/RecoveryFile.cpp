#include "documents/RecoveryFile.h"

#include "files/DurableFile.h"

#include <QDir>
#include <QUuid>

#include <fcntl.h>
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
    if (!file->m_lock.isOpen() || FileSystem::system().lock(file->m_lock.get()) < 0)
        return nullptr;
    // Its former holder may have removed it in the moment before it was locked.
    return file->isHeld() ? std::move(file) : nullptr;
}

bool RecoveryFile::isHeld() const
{
    // Other processes cannot find a lock file that has no name, so such a lock does not protect the recovery
    // file.
    struct stat locked;
    return FileSystem::system().fstat(m_lock.get(), &locked) == 0 && locked.st_nlink > 0;
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
        auto file = hold(directory.filePath(name));
        if (file && QFile::exists(file->path())) // Its holder may have removed it since it was listed.
            files.push_back(std::move(file));
    }
    removeAbandonedFiles(directory.filePath(Suffix));
    // What is left of a process that was killed before it had written anything, or after it had removed it.
    for (const QString &name : directory.entryList({u'*' + Suffix + LockSuffix}, QDir::Files)) {
        const QString path = directory.filePath(name.chopped(LockSuffix.size()));
        if (const auto file = QFile::exists(path) ? nullptr : hold(path))
            file->remove();
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
