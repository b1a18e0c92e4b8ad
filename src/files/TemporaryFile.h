#pragma once

#include "files/FileDescriptor.h"
#include "files/FileError.h"

#include <QByteArray>
#include <QString>

namespace Foundation
{

// The temporary file of a save, in the folder of the real file. It is renamed at the end.
//
// Its name consists of ".", the name of the application, "-", 16 hexadecimal digits that identify the user
// and the machine, "-", and 16 random digits. The file is locked (flock) as long as it has that name and its
// process lives. So name and lock distinguish the file of a killed process from one that another process is
// writing. The machine is part of the name because some network folders do not share locks between machines.
class TemporaryFile
{
public:
    TemporaryFile(const QString &application, FileSystem &files)
        : m_files(files)
        , m_application(application)
        , m_content(files)
        , m_lock(files)
    {
    }
    ~TemporaryFile() { remove(); }
    Q_DISABLE_COPY_MOVE(TemporaryFile)

    // Makes an empty file with the mode 0600, and removes the former one. `folder` must stay open as long as
    // the file has its temporary name.
    SystemResult<> create(int folder);
    // The descriptor for writing, valid until close().
    int descriptor() const { return m_content.get(); }
    // Closes this descriptor. The file stays locked.
    SystemResult<> close();
    SystemResult<> renameTo(const QByteArray &name);

    // Removes the files in `folder` that killed processes of this application, user and machine left: regular
    // files of the user with such a name that no process has locked. A file that cannot be removed is no
    // error; the next save tries again. Reads the names of the whole folder.
    void removeAbandoned(int folder) const;

private:
    // Fails with std::errc::file_exists if another name must be tried.
    SystemResult<> lock();
    void remove();

    FileSystem &m_files;
    const QString m_application;
    int m_folder = -1;
    QByteArray m_name; // Empty if there is no file.
    FileDescriptor m_content;
    // A second descriptor of the same open file, so that the lock remains when the first one is closed.
    FileDescriptor m_lock;
};

} // namespace Foundation
