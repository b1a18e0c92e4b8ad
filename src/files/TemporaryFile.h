#pragma once

#include "files/FileDescriptor.h"
#include "files/FileError.h"

#include <QByteArray>
#include <QString>

namespace Foundation
{

// The file into which a save writes before it is renamed, in the folder of the real file.
//
// Its name is ".", the name of the application, "-", 16 hexadecimal digits that stand for this user on this
// machine, "-", and 16 random ones. It is locked (flock) as long as it has that name and its process lives.
// Together, name and lock tell what a killed process left from what another one is writing: the machine is a
// part of the name because some network folders do not share their locks between machines.
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

    // Makes an empty file with mode 0600, after removing the one that there was. `folder` stays open as long
    // as the file has its temporary name.
    SystemResult<> create(int folder);
    // Open for writing until closed.
    int descriptor() const { return m_content.get(); }
    // Closes the content only; the file stays locked.
    SystemResult<> close();
    SystemResult<> renameTo(const QByteArray &name);

    // Removes the files in `folder` that killed processes of this application, user and machine have left:
    // regular files of the user with exactly such a name that no process has locked. Everything else stays.
    // What cannot be removed is no error: the next save tries again. Reads the names of the whole folder.
    void removeAbandoned(int folder) const;

private:
    // std::errc::file_exists if another name has to be tried.
    SystemResult<> lock();
    void remove();

    FileSystem &m_files;
    const QString m_application;
    int m_folder = -1;
    QByteArray m_name; // Empty while there is no such file.
    FileDescriptor m_content;
    // A second descriptor of the same open file, since the lock has to outlast the closing of the first.
    FileDescriptor m_lock;
};

} // namespace Foundation
