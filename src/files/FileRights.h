#pragma once

#include "files/FileError.h"
#include "files/FileSystem.h"

#include <QList>

#include <utility>

namespace Foundation
{

// Owner, group, mode and extended attributes of a file that is about to be replaced, for the new file. On
// Linux, access control lists are extended attributes and so included.
//
// If the user may not set the owner or group, they are not kept, and the mode is restricted so that no user
// gets new rights. Set-user and set-group bits are dropped, because documents are not programs. Attributes
// "security.*" except the SELinux label are dropped, because they apply to the old content.
class FileRights
{
public:
    // The rights of a new file: mode 0600, everything else as the system made it.
    FileRights() = default;

    // Reads the rights of the regular file `name` in `folder`. If the file cannot be opened for reading, only
    // owner and mode are kept.
    SystemResult<> takeFrom(int folder, const char *name, const struct stat &status, FileSystem &files);

    // Applies the rights to an open file. A right that may not be set is no failure.
    SystemResult<> giveTo(int descriptor, FileSystem &files) const;

private:
    SystemResult<> takeAttributesFrom(int descriptor, FileSystem &files);
    SystemResult<> giveOwner(int descriptor, FileSystem &files, mode_t &mode) const;
    static SystemResult<> giveMode(int descriptor, FileSystem &files, mode_t mode);
    SystemResult<> giveAttributes(int descriptor, FileSystem &files, mode_t &mode) const;

    bool m_replacing = false;
    // False if the file may have an access list that could not be read.
    bool m_listsKnown = true;
    mode_t m_mode = 0600;
    uid_t m_owner = 0;
    gid_t m_group = 0;
    QList<std::pair<QByteArray, QByteArray>> m_attributes;
};

} // namespace Foundation
