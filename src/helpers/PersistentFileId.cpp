#include "helpers/PersistentFileId.h"

#include "files/FileSystem.h"

#include <fcntl.h>
#include <sys/sysmacros.h>

std::optional<PersistentFileId> PersistentFileId::ofFile(const QString &path)
{
    const auto name = Foundation::encodedPath(path);
    struct statx status = {};
    if (!name || statx(AT_FDCWD, name->constData(), 0, STATX_INO | STATX_BTIME, &status) != 0)
        return std::nullopt;
    constexpr qint64 NanosecondsOfSecond = 1000000000;
    PersistentFileId id;
    id.device = makedev(status.stx_dev_major, status.stx_dev_minor);
    id.inode = status.stx_ino;
    if (status.stx_mask & STATX_BTIME)
        id.birthInNanoseconds = status.stx_btime.tv_sec * NanosecondsOfSecond + status.stx_btime.tv_nsec;
    return id;
}
