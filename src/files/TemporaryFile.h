#pragma once

#include "files/FileDescriptor.h"

#include <QByteArray>

namespace Foundation
{

// The file into which a save writes before it is renamed, in the folder of the real file.
//
// Its name is ".vexarel-", 16 hexadecimal digits that stand for this user on this machine, "-", and 16 random
// ones. It is locked (flock) as long as it has that name and its process lives. Together, name and lock tell
// what a killed process left from what another one is writing: the machine is a part of the name because some
// network folders do not share their locks between machines.
//
// Errors are numbers of errno, 0 for success.
class TemporaryFile
{
public:
    explicit TemporaryFile(FileSystem &files)
        : m_files(files)
        , m_content(files)
        , m_lock(files)
    {
    }
    ~TemporaryFile() { remove(); }
    Q_DISABLE_COPY_MOVE(TemporaryFile)

    // Makes an empty file with mode 0600, after removing the one that there was. `folder` stays open as long
    // as the file has its temporary name.
    [[nodiscard]] int create(int folder);
    // Open for writing until closed.
    int descriptor() const { return m_content.get(); }
    // Closes the content only; the file stays locked.
    [[nodiscard]] int close();
    [[nodiscard]] int renameTo(const QByteArray &name);

    // Removes the files in `folder` that killed processes of this user on this machine have left: regular
    // files of the user with exactly such a name that no process has locked. Everything else stays. What
    // cannot be removed is no error: the next save tries again. Reads the names of the whole folder.
    static void removeAbandoned(int folder, FileSystem &files);

private:
    // EEXIST if another name has to be tried.
    int lock();
    void remove();

    FileSystem &m_files;
    int m_folder = -1;
    QByteArray m_name; // Empty while there is no such file.
    FileDescriptor m_content;
    // A second descriptor of the same open file, since the lock has to outlast the closing of the first.
    FileDescriptor m_lock;
};

} // namespace Foundation
