#pragma once

#include "files/FileDescriptor.h"
#include "files/FileIdentity.h"
#include "files/FileRights.h"
#include "files/TemporaryFile.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Foundation
{

// The steps of writeFileDurably, in the order in which they must be called. A step that fails says why in
// `error`, and none may follow it. The temporary file, if there is one, goes with the object.
class FileReplacement
{
public:
    explicit FileReplacement(FileSystem &files)
        : m_files(files)
        , m_folder(files)
        , m_temporary(files)
    {
    }
    Q_DISABLE_COPY_MOVE(FileReplacement)

    // Follows links to the real file, which need not exist, and opens its folder.
    bool locate(const QByteArray &path);
    // Removes what killed processes left in that folder; see TemporaryFile.
    void removeAbandonedFiles() { TemporaryFile::removeAbandoned(m_folder.get(), m_files); }
    // Refuses what must not be replaced, or is not the expected file, and takes the rights of what may be.
    bool examineOldFile(const std::optional<FileIdentity> &expected);
    // Returns with the bytes on the disk.
    bool writeTemporaryFile(const QByteArray &bytes);
    // The identity of the new file once it has its name, even if `error` is set after that.
    std::optional<FileIdentity> putInPlace();

    // Null while all is well.
    QString error() const { return m_error; }

private:
    bool fail(const QString &text);
    bool followLinks(QByteArray &path);
    int fillTemporaryFile(const QByteArray &bytes);
    int writeAll(int descriptor, const QByteArray &bytes);
    bool oldFileUnchanged();
    FileIdentity identityInPlace();

    FileSystem &m_files;
    // Held open, so that all happens in one folder even if it is moved meanwhile.
    FileDescriptor m_folder;
    QByteArray m_name;
    std::optional<FileIdentity> m_oldFile;
    FileIdentity m_newFile;
    FileRights m_rights;
    TemporaryFile m_temporary;
    QString m_error;
};

} // namespace Foundation
