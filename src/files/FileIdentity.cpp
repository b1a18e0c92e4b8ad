#include "files/FileIdentity.h"

#include "files/FileDescriptor.h"

#include <fcntl.h>

namespace Foundation
{

FileIdentity FileIdentity::fromStatus(const struct stat &status)
{
    FileIdentity identity;
    identity.device = status.st_dev;
    identity.inode = status.st_ino;
    identity.size = status.st_size;
    identity.contentChanged = {status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    identity.statusChanged = {status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
    return identity;
}

std::optional<FileIdentity> identityOfFile(const QString &path, FileSystem &files)
{
    struct stat status;
    const std::optional<QByteArray> name = encodedPath(path);
    if (!name || uninterrupted([&] { return files.statAt(AT_FDCWD, name->constData(), &status); }) < 0)
        return std::nullopt;
    return FileIdentity::fromStatus(status);
}

} // namespace Foundation
