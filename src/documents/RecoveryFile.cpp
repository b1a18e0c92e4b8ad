#include "documents/RecoveryFile.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace Foundation
{

const QString RecoveryFile::LockSuffix = QStringLiteral(".lock");

RecoveryFile::RecoveryFile(const QString &path, const QString &application)
    : m_path(path)
    , m_application(application)
    , m_lock(FileSystem::system())
{
}

SystemResult<std::unique_ptr<RecoveryFile>> RecoveryFile::hold(const QString &path,
                                                               const QString &application)
{
    const auto name = encodedPath(path + LockSuffix);
    if (!name)
        return Failure{std::errc::invalid_argument};
    std::unique_ptr<RecoveryFile> file(new RecoveryFile(path, application));
    FileSystem &files = FileSystem::system();
    constexpr int Flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC;
    file->m_lock.reset(
        uninterrupted([&] { return files.openAt(AT_FDCWD, name->constData(), Flags, S_IRUSR | S_IWUSR); }));
    if (!file->m_lock.isOpen() || files.lock(file->m_lock.get()) < 0)
        return systemFailure();
    // Its former owner may have removed it in the moment before it was locked.
    if (!file->isHeld())
        return Failure{std::errc::no_such_file_or_directory};
    return file;
}

bool RecoveryFile::isHeld() const
{
    // Other processes cannot find a lock file that has no name, so such a lock does not protect the recovery
    // file.
    struct stat locked;
    return FileSystem::system().fstat(m_lock.get(), &locked) == 0 && locked.st_nlink > 0;
}

FileResult<> RecoveryFile::write(const QByteArray &bytes)
{
    const FileWriteResult written = writeFileDurably(m_path, bytes, m_application);
    if (!written)
        return written.failure();
    return {};
}

void RecoveryFile::remove()
{
    for (const QString &path : {m_path, m_path + LockSuffix}) {
        if (const auto name = encodedPath(path))
            (void)FileSystem::system().unlinkAt(AT_FDCWD, name->constData()); // The file may not exist.
    }
}

} // namespace Foundation
