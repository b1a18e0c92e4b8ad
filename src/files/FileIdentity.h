#pragma once

#include "files/FileSystem.h"

#include <QString>

#include <compare>
#include <optional>

namespace Foundation
{

// Identifies a version of a file, to find out whether it is still the one that was read or saved. Must not be
// stored, because some file systems change the numbers of devices and files when they are mounted.
struct FileIdentity
{
    struct Moment
    {
        qint64 seconds = 0; // Since 1970.
        qint64 nanoseconds = 0;
        friend auto operator<=>(const Moment &, const Moment &) = default; // NOLINT: takes it for a null
    };

    static FileIdentity fromStatus(const struct stat &status);

    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0; // In bytes.
    Moment contentChanged;
    // Also changes when the file is renamed or its rights change. Programs cannot set it.
    Moment statusChanged;

    // Whether the content is the same, as far as this can be known without reading it. Unlike equality, this
    // ignores a change of name or rights, which a user makes on purpose and need not confirm.
    bool hasSameContentAs(const FileIdentity &other) const
    {
        return device == other.device && inode == other.inode && size == other.size &&
               contentChanged == other.contentChanged;
    }

    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

// The identity of the file at `path`; links are followed. Nothing if there is no such file or it cannot be
// examined.
[[nodiscard]] std::optional<FileIdentity> identityOfFile(const QString &path,
                                                         FileSystem &files = FileSystem::system());

} // namespace Foundation
