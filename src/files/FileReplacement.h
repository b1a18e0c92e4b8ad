#pragma once

#include "files/FileDescriptor.h"
#include "files/FileError.h"
#include "files/FileIdentity.h"
#include "files/FileRights.h"
#include "files/TemporaryFile.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Foundation
{

// The steps of writeFileDurably, in the order in which they must be called. None may follow one that failed.
// The temporary file, if there is one, goes with the object.
class FileReplacement
{
public:
    FileReplacement(const QString &application, FileSystem &files)
        : m_files(files)
        , m_folder(files)
        , m_temporary(application, files)
    {
    }
    Q_DISABLE_COPY_MOVE(FileReplacement)

    // Follows links to the real file, which need not exist, and opens its folder.
    FileResult<> locate(const QByteArray &path);
    // Removes what killed processes left in that folder; see TemporaryFile.
    void removeAbandonedFiles() { m_temporary.removeAbandoned(m_folder.get()); }
    // Refuses what must not be replaced, or is not the expected file, and takes the rights of what may be.
    FileResult<> examineOldFile(const std::optional<FileIdentity> &expected);
    // Returns with the bytes on the disk.
    FileResult<> writeTemporaryFile(const QByteArray &bytes);
    FileResult<> putInPlace();
    // Of the new file, from when it has its name, even if the last step failed after that.
    const std::optional<FileIdentity> &identityInPlace() const { return m_inPlace; }

private:
    // The path without links.
    FileResult<QByteArray> followLinks(const QByteArray &path);
    SystemResult<> fillTemporaryFile(const QByteArray &bytes);
    SystemResult<> writeAll(int descriptor, const QByteArray &bytes);
    FileResult<> checkOldFileUnchanged();
    FileIdentity lookAtPlace();

    FileSystem &m_files;
    // Held open, so that all happens in one folder even if it is moved meanwhile.
    FileDescriptor m_folder;
    QByteArray m_name;
    std::optional<FileIdentity> m_oldFile;
    FileIdentity m_newFile;
    FileRights m_rights;
    std::optional<FileIdentity> m_inPlace;
    TemporaryFile m_temporary;
};

} // namespace Foundation
