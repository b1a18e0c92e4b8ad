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

// Reads and saves whole files. The words of a failure say only the reason; the caller adds a line that says
// what failed. All functions block until the disk has answered.

struct FileContent
{
    QByteArray bytes;      // Empty also if `canBeIt` rejected the file.
    FileIdentity identity; // The identity of the file when it was read.
};

// Whether a file of that size can have the expected format, judged by its first and last 64 bytes.
using FileEndsCheck = std::function<bool(QByteArrayView head, QByteArrayView tail, qint64 size)>;

// Reads the whole regular file `path`; links are followed. Fails if the file is larger than `maxBytes`. Never
// waits for the other end of a FIFO and never reads a device. If the file changes while it is read, it is
// read again once; if it changes again, reading fails, so the result is never a mixture of two versions. If
// `canBeIt` is given and rejects a file of more than 1 MiB, the rest is not read.
FileResult<FileContent> readRegularFile(const QString &path, qint64 maxBytes,
                                        FileSystem &files = FileSystem::system(),
                                        const FileEndsCheck &canBeIt = {});

struct [[nodiscard]] FileWriteResult : FileResult<>
{
    // The identity of the new file. Set after success and after FileError::Unconfirmed, when the disk did not
    // confirm the change of the folder.
    std::optional<FileIdentity> identity;
};

// Replaces the file `path` by a file with the given content, or creates it. After success the content
// survives a power failure. At any moment, even if the process is killed, the name refers either to the whole
// old content or to the whole new content. After a failure it refers to the old content, except after
// FileError::Unconfirmed.
//
// The content is written into a temporary file in the same folder, which is flushed and then renamed.
// Therefore:
// - Links are followed; the target of a dangling link is created. Other hard links of the old file keep the
//   old content.
// - Owner, group, mode, access lists and extended attributes are kept as far as permitted; see FileRights. A
//   new file has the mode 0600.
// - The folder must be writable, and readable to be flushed. The old file is never written in place, because
//   an interruption would damage it.
// - A file that the user may not write is refused, although the folder would permit the replacement. A file
//   without any write permission is refused even for the system administrator, because it is meant to be
//   kept.
// - A file that another program changes during the save is not replaced. If `expected` is given, an existing
//   file with another content is not replaced either. A file that was removed is created again.
// - A failed flush is never repeated on the same file, because the system may have dropped the data and would
//   then report success. The next save writes a new file.
//
// A killed process leaves its temporary file. The next save of `application` into the folder removes it, and
// so does removeAbandonedFiles; see TemporaryFile for the names that begin with `application`.
FileWriteResult writeFileDurably(const QString &path, const QByteArray &bytes, const QString &application,
                                 const std::optional<FileIdentity> &expected = std::nullopt,
                                 FileSystem &files = FileSystem::system());

// Removes the temporary files that killed saves of this user left in the folder of the file `path`; links are
// followed. Errors are ignored.
void removeAbandonedFiles(const QString &path, const QString &application,
                          FileSystem &files = FileSystem::system());

} // namespace Foundation
