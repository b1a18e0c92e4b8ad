#include "files/FileSystem.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace Foundation
{

namespace
{

FileSystem realSystem;
FileSystem *systemInForce = &realSystem;

} // namespace

FileSystem &FileSystem::system()
{
    return *systemInForce;
}

void FileSystem::setSystem(FileSystem *files)
{
    systemInForce = files ? files : &realSystem;
}

int FileSystem::openAt(int folder, const char *name, int flags, mode_t mode)
{
    return ::openat(folder, name, flags, mode);
}

int FileSystem::close(int descriptor)
{
    return ::close(descriptor);
}

ssize_t FileSystem::readAt(int descriptor, void *buffer, std::size_t size, off_t offset)
{
    return ::pread(descriptor, buffer, size, offset);
}

ssize_t FileSystem::write(int descriptor, const void *bytes, std::size_t size)
{
    return ::write(descriptor, bytes, size);
}

int FileSystem::fsync(int descriptor)
{
    return ::fsync(descriptor);
}

int FileSystem::duplicate(int descriptor)
{
    return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
}

int FileSystem::lock(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB);
}

int FileSystem::fstat(int descriptor, struct stat *status)
{
    return ::fstat(descriptor, status);
}

int FileSystem::fstatAt(int folder, const char *name, struct stat *status)
{
    return ::fstatat(folder, name, status, AT_SYMLINK_NOFOLLOW);
}

int FileSystem::statAt(int folder, const char *name, struct stat *status)
{
    return ::fstatat(folder, name, status, 0);
}

int FileSystem::accessAt(int folder, const char *name, int mode)
{
    return ::faccessat(folder, name, mode, 0);
}

ssize_t FileSystem::readLink(const char *path, char *buffer, std::size_t size)
{
    return ::readlink(path, buffer, size);
}

int FileSystem::renameAt(int folder, const char *oldName, const char *newName)
{
    return ::renameat(folder, oldName, folder, newName);
}

int FileSystem::unlinkAt(int folder, const char *name)
{
    return ::unlinkat(folder, name, 0);
}

int FileSystem::chmodAt(int folder, const char *name, mode_t mode)
{
    return ::fchmodat(folder, name, mode, 0);
}

int FileSystem::mkdirAt(int folder, const char *name, mode_t mode)
{
    return ::mkdirat(folder, name, mode);
}

int FileSystem::readNames(int folder, QList<QByteArray> *names)
{
    // Opens a second descriptor, because the list closes its descriptor and reading changes its position.
    const int reading = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR *const list = reading < 0 ? nullptr : ::fdopendir(reading);
    int error = list ? 0 : errno;
    while (list) {
        errno = 0; // To distinguish the end of the list from a failure.
        const dirent *const entry = ::readdir(list);
        error = errno;
        if (!entry)
            break;
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..")
            names->append(name);
    }
    if (list)
        ::closedir(list);
    else if (reading >= 0)
        ::close(reading);
    errno = error;
    return error == 0 ? 0 : -1;
}

int FileSystem::fchmod(int descriptor, mode_t mode)
{
    return ::fchmod(descriptor, mode);
}

int FileSystem::fchown(int descriptor, uid_t owner, gid_t group)
{
    return ::fchown(descriptor, owner, group);
}

ssize_t FileSystem::flistxattr(int descriptor, char *names, std::size_t size)
{
    return ::flistxattr(descriptor, names, size);
}

ssize_t FileSystem::fgetxattr(int descriptor, const char *name, void *value, std::size_t size)
{
    return ::fgetxattr(descriptor, name, value, size);
}

int FileSystem::fsetxattr(int descriptor, const char *name, const void *value, std::size_t size)
{
    return ::fsetxattr(descriptor, name, value, size, 0);
}

int FileSystem::fremovexattr(int descriptor, const char *name)
{
    return ::fremovexattr(descriptor, name);
}

std::optional<QByteArray> encodedPath(const QString &path)
{
    QByteArray encoded = QFile::encodeName(path);
    if (encoded.isEmpty() || encoded.contains('\0') || QFile::decodeName(encoded) != path)
        return std::nullopt;
    return encoded;
}

} // namespace Foundation
