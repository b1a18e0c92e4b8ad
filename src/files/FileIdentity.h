#pragma once

#include "files/FileSystem.h"

#include <QString>

#include <compare>
#include <optional>

namespace Foundation
{

// What tells whether a file is still the one that was read or saved, and unchanged since. Not for keeping
// beyond the run: some file systems number devices and files anew whenever they are mounted.
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
    // Moves with renaming and changes of rights as well, and nobody can set it back.
    Moment statusChanged;

    // Whether the content is the same as far as can be told without reading it: unlike equality this passes
    // over a change of name or rights, which a user makes on purpose and does not want to be asked about.
    bool hasSameContentAs(const FileIdentity &other) const
    {
        return device == other.device && inode == other.inode && size == other.size &&
               contentChanged == other.contentChanged;
    }

    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

// Links are followed. Nothing if no file of that name can be found or examined.
[[nodiscard]] std::optional<FileIdentity> identityOfFile(const QString &path,
                                                         FileSystem &files = FileSystem::system());

} // namespace Foundation
