#pragma once

#include <QString>

#include <optional>

// Which file it is, whatever its name and content: stays the same when the file is edited in place, renamed
// or moved within its file system, and can be kept beyond the run.
//
// Numbers of deleted files are given out again, so the moment at which the file was made belongs to it; file
// systems that keep no such moment give 0, and then a file known by its number alone may be another.
struct PersistentFileId
{
    quint64 device = 0; // Some file systems get another number when they are mounted again.
    quint64 inode = 0;
    qint64 birthInNanoseconds = 0; // Since 1970.

    // Of the file or folder that `path` leads to, links followed; nothing if there is none.
    static std::optional<PersistentFileId> ofFile(const QString &path);

    friend bool operator==(const PersistentFileId &, const PersistentFileId &) = default;
};
