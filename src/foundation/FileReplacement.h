#pragma once

#include "foundation/FileDescriptor.h"
#include "foundation/FileIdentity.h"
#include "foundation/FileRights.h"

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
    {
    }
    ~FileReplacement() { removeTemporaryFile(); }
    Q_DISABLE_COPY_MOVE(FileReplacement)

    // Follows links to the real file, which need not exist, and opens its folder.
    bool locate(const QByteArray &path);
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
    bool createTemporaryFile(FileDescriptor &file);
    int fillTemporaryFile(FileDescriptor &file, const QByteArray &bytes);
    int writeAll(int descriptor, const QByteArray &bytes);
    void removeTemporaryFile();
    bool oldFileUnchanged();
    FileIdentity identityInPlace();

    FileSystem &m_files;
    // Held open, so that all happens in one folder even if it is moved meanwhile.
    FileDescriptor m_folder;
    QByteArray m_name;
    QByteArray m_temporaryName; // Empty while there is no such file.
    std::optional<FileIdentity> m_oldFile;
    FileIdentity m_newFile;
    FileRights m_rights;
    QString m_error;
};

} // namespace Foundation
