#pragma once

#include <QString>

#include <optional>

// Identifies a file independently of its name and content: it stays the same when the file is edited in
// place, renamed or moved within its file system. It can be stored.
//
// The inode of a deleted file is used again, so the time at which the file was created is part of the id. For
// file systems without creation times that part is 0, and the id may then match another file.
struct PersistentFileId
{
    quint64 device = 0; // May change when the file system is mounted again.
    quint64 inode = 0;
    qint64 birthInNanoseconds = 0; // Since 1970.

    // The id of the file or folder at `path`; links are followed. Nothing if there is none.
    [[nodiscard]] static std::optional<PersistentFileId> ofFile(const QString &path);

    friend bool operator==(const PersistentFileId &, const PersistentFileId &) = default;
};
