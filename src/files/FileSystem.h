#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstddef>
#include <optional>
#include <sys/stat.h>
#include <sys/types.h>

namespace Foundation
{

// The system calls by which files are read and saved, so that a test can let each of them fail. Every call is
// the one of POSIX or Linux that bears its name: a negative result is a failure, and errno tells why. Names
// are relative to the open folder `folder`, or to the current one for AT_FDCWD. The base class is the real
// system. Usable from any thread.
class FileSystem
{
public:
    virtual ~FileSystem() = default;

    // The one used where none is named: the real system, until a test puts another in its place. Not owned;
    // null brings the real one back.
    static FileSystem &system();
    static void setSystem(FileSystem *files);

    [[nodiscard]] virtual int openAt(int folder, const char *name, int flags, mode_t mode);
    // Releases the descriptor even when it fails.
    virtual int close(int descriptor);
    [[nodiscard]] virtual ssize_t readAt(int descriptor, void *buffer, std::size_t size, off_t offset);
    [[nodiscard]] virtual ssize_t write(int descriptor, const void *bytes, std::size_t size);
    [[nodiscard]] virtual int fsync(int descriptor);
    // The same open file, and thus the same lock, under a second number (fcntl with F_DUPFD_CLOEXEC).
    [[nodiscard]] virtual int duplicate(int descriptor);
    // An exclusive lock on the open file (flock), without waiting for it.
    [[nodiscard]] virtual int lock(int descriptor);
    [[nodiscard]] virtual int fstat(int descriptor, struct stat *status);
    // Tells of a link itself, not of what it leads to.
    [[nodiscard]] virtual int fstatAt(int folder, const char *name, struct stat *status);
    // Follows links.
    [[nodiscard]] virtual int statAt(int folder, const char *name, struct stat *status);
    // For the real user; follows links.
    [[nodiscard]] virtual int accessAt(int folder, const char *name, int mode);
    [[nodiscard]] virtual ssize_t readLink(const char *path, char *buffer, std::size_t size);
    // Within one folder; replaces `newName`.
    [[nodiscard]] virtual int renameAt(int folder, const char *oldName, const char *newName);
    [[nodiscard]] virtual int unlinkAt(int folder, const char *name);
    // Follows links.
    [[nodiscard]] virtual int chmodAt(int folder, const char *name, mode_t mode);
    [[nodiscard]] virtual int mkdirAt(int folder, const char *name, mode_t mode);
    // The names of all that lies in the open folder, without "." and ".." (readdir); 0 or -1.
    [[nodiscard]] virtual int readNames(int folder, QList<QByteArray> *names);
    [[nodiscard]] virtual int fchmod(int descriptor, mode_t mode);
    [[nodiscard]] virtual int fchown(int descriptor, uid_t owner, gid_t group);
    [[nodiscard]] virtual ssize_t flistxattr(int descriptor, char *names, std::size_t size);
    [[nodiscard]] virtual ssize_t fgetxattr(int descriptor, const char *name, void *value, std::size_t size);
    [[nodiscard]] virtual int fsetxattr(int descriptor, const char *name, const void *value,
                                        std::size_t size);
    [[nodiscard]] virtual int fremovexattr(int descriptor, const char *name);
};

// The bytes by which the system knows `path`. Nothing if it has no such bytes (empty, a null character, half
// a surrogate pair): replacing what cannot be written would name another file.
[[nodiscard]] std::optional<QByteArray> encodedPath(const QString &path);

} // namespace Foundation
