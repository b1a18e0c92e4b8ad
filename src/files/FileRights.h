#pragma once

#include "files/FileError.h"
#include "files/FileSystem.h"

#include <QList>

#include <utility>

namespace Foundation
{

// Owner, group, mode and extended attributes of a file that is about to be replaced, so that the new file can
// have them too. On Linux access control lists are attributes, and thus included.
//
// What the user may not give away (the ownership of somebody else) is left out, and then the mode is narrowed
// so that nobody gains a right by it. Set-user and set-group bits are dropped: documents are not programs.
// Attributes "security.*" other than the SELinux label are left out: they vouch for the old content.
class FileRights
{
public:
    // Those of a new file: mode 0600, everything else as the system made it.
    FileRights() = default;

    // Reads those of the regular file `name` in `folder`. A file that cannot be read keeps its owner
    // and mode.
    SystemResult<> takeFrom(int folder, const char *name, const struct stat &status, FileSystem &files);

    // Gives them to the open file. What is merely not permitted is no failure.
    SystemResult<> giveTo(int descriptor, FileSystem &files) const;

private:
    SystemResult<> takeAttributesFrom(int descriptor, FileSystem &files);
    SystemResult<> giveOwner(int descriptor, FileSystem &files, mode_t &mode) const;
    static SystemResult<> giveMode(int descriptor, FileSystem &files, mode_t mode);
    SystemResult<> giveAttributes(int descriptor, FileSystem &files, mode_t &mode) const;

    bool m_replacing = false;
    // False if some access list may exist that is not known.
    bool m_listsKnown = true;
    mode_t m_mode = 0600;
    uid_t m_owner = 0;
    gid_t m_group = 0;
    QList<std::pair<QByteArray, QByteArray>> m_attributes;
};

} // namespace Foundation
