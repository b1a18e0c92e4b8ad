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

// The steps of writeFileDurably(), in the order in which they must be called. After a failed step, no other
// step may be called. The destructor removes the temporary file, if there is one.
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
    // Removes temporary files of killed processes in that folder; see TemporaryFile.
    void removeAbandonedFiles() { m_temporary.removeAbandoned(m_folder.get()); }
    // Fails if the old file must not be replaced or is not the expected one. Otherwise stores its rights.
    FileResult<> examineOldFile(const std::optional<FileIdentity> &expected);
    // Writes and flushes the temporary file.
    FileResult<> writeTemporaryFile(const QByteArray &bytes);
    FileResult<> putInPlace();
    // The identity of the new file as soon as it has its name, even if putInPlace() failed after that.
    const std::optional<FileIdentity> &identityInPlace() const { return m_inPlace; }

private:
    // Returns the path without links.
    FileResult<QByteArray> followLinks(const QByteArray &path);
    SystemResult<> fillTemporaryFile(const QByteArray &bytes);
    SystemResult<> writeAll(int descriptor, const QByteArray &bytes);
    FileResult<> checkOldFileUnchanged();
    FileIdentity lookAtPlace();

    FileSystem &m_files;
    // Stays open, so that all steps use the same folder even if it is moved meanwhile.
    FileDescriptor m_folder;
    QByteArray m_name;
    std::optional<FileIdentity> m_oldFile;
    FileIdentity m_newFile;
    FileRights m_rights;
    std::optional<FileIdentity> m_inPlace;
    TemporaryFile m_temporary;
};

} // namespace Foundation
