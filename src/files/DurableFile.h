#pragma once

#include "files/FileError.h"
#include "files/FileIdentity.h"
#include "files/FileSystem.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace Foundation
{

// Reading and saving of whole files. The words of a failure are to be shown below a line that says what
// failed. Everything here blocks until the disk has answered.

struct FileContent
{
    QByteArray bytes;      // Empty also where the file cannot be what is sought.
    FileIdentity identity; // Of the very file that the bytes are from.
};

// Whether a file of that size can be what is sought, by its first and last bytes, 64 of each.
using FileEndsCheck = std::function<bool(QByteArrayView head, QByteArrayView tail, qint64 size)>;

// Reads all of the regular file `path`, links followed; at most `maxBytes`, beyond which nothing is read.
// Never waits for the other end of a FIFO and never reads a device. If the file changes while it is read, it
// is read once more; if it changes again, that is a failure, never a mixture of two versions. Of a file of
// more than a MiB the rest is read only if `canBeIt` takes its ends.
FileResult<FileContent> readRegularFile(const QString &path, qint64 maxBytes,
                                        FileSystem &files = FileSystem::system(),
                                        const FileEndsCheck &canBeIt = {});

struct [[nodiscard]] FileWriteResult : FileResult<>
{
    // Of the new file, as soon as it has its place: after success, and after FileError::Unconfirmed, where
    // the disk did not confirm the change of the folder.
    std::optional<FileIdentity> identity;
};

// Replaces the file `path` by one of the given content, or creates it. After success the content survives a
// power failure. At any other moment the name leads either to the whole old content or to the whole new one,
// even if the process is killed; after a failure to the old one, but for the case told above.
//
// The content goes into a temporary file beside the real one, is flushed and then renamed. Therefore:
// - Links are followed, and the file that a dangling link means is created. Another hard link of the old file
//   keeps the old content.
// - Owner, group, mode, access lists and extended attributes are kept as far as permitted; see FileRights. A
//   new file has mode 0600.
// - The folder must be writable, and readable to be flushed. There is no second way that writes into the old
//   file, since an interruption would damage it.
// - A file that the user may not write is refused, although its folder would permit the replacement. So is
//   one without any write permission, even for the system administrator: somebody wanted it to stay.
// - A file that another program changes while this one is written is not replaced, nor is one that is there
//   but has not the content of `expected`, if that is given. One that was removed is made again.
// - A flush that failed is never repeated on the same file, since the system may have dropped the data and
//   then report success. The next save writes a fresh file.
//
// A killed process leaves its temporary file. The next save of `application` into the folder removes it, and
// so does removeAbandonedFiles; see TemporaryFile for the names that begin with `application`.
FileWriteResult writeFileDurably(const QString &path, const QByteArray &bytes, const QString &application,
                                 const std::optional<FileIdentity> &expected = std::nullopt,
                                 FileSystem &files = FileSystem::system());

// Removes what killed saves of this user left in the folder of the file `path`, links followed. Nothing is
// told: what cannot be removed stays.
void removeAbandonedFiles(const QString &path, const QString &application,
                          FileSystem &files = FileSystem::system());

} // namespace Foundation
