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

// The system calls that read and save files, as virtual functions, so that a test can make each of them fail.
// This class calls the real system. Each function is the POSIX or Linux call with a similar name: a negative
// result is a failure, and errno has the reason. `name` is relative to the open folder `folder`, or to the
// current folder for AT_FDCWD. The calls may be used from any thread, but system() and setSystem() only from
// the main thread.
class FileSystem
{
public:
    virtual ~FileSystem() = default;

    // The default for all functions that take a FileSystem: the real system, or another one that a test has
    // set. It is not owned; null restores the real system.
    static FileSystem &system();
    static void setSystem(FileSystem *files);

    [[nodiscard]] virtual int openAt(int folder, const char *name, int flags, mode_t mode);
    // Releases the descriptor even if it fails.
    virtual int close(int descriptor);
    [[nodiscard]] virtual ssize_t readAt(int descriptor, void *buffer, std::size_t size, off_t offset);
    [[nodiscard]] virtual ssize_t write(int descriptor, const void *bytes, std::size_t size);
    [[nodiscard]] virtual int fsync(int descriptor);
    // Makes a second descriptor of the same open file, which shares its lock (fcntl with F_DUPFD_CLOEXEC).
    [[nodiscard]] virtual int duplicate(int descriptor);
    // Takes an exclusive lock of the open file without waiting (flock).
    [[nodiscard]] virtual int lock(int descriptor);
    [[nodiscard]] virtual int fstat(int descriptor, struct stat *status);
    // Examines a link itself, not its target.
    [[nodiscard]] virtual int fstatAt(int folder, const char *name, struct stat *status);
    // Follows links.
    [[nodiscard]] virtual int statAt(int folder, const char *name, struct stat *status);
    // Checks the rights of the real user of the process; follows links.
    [[nodiscard]] virtual int accessAt(int folder, const char *name, int mode);
    [[nodiscard]] virtual ssize_t readLink(const char *path, char *buffer, std::size_t size);
    // Renames within one folder. An existing `newName` is replaced.
    [[nodiscard]] virtual int renameAt(int folder, const char *oldName, const char *newName);
    [[nodiscard]] virtual int unlinkAt(int folder, const char *name);
    // Follows links.
    [[nodiscard]] virtual int chmodAt(int folder, const char *name, mode_t mode);
    [[nodiscard]] virtual int mkdirAt(int folder, const char *name, mode_t mode);
    // Reads the names of all entries of the open folder except "." and ".." (readdir). Returns 0 or -1.
    [[nodiscard]] virtual int readNames(int folder, QList<QByteArray> *names);
    [[nodiscard]] virtual int fchmod(int descriptor, mode_t mode);
    [[nodiscard]] virtual int fchown(int descriptor, uid_t owner, gid_t group);
    [[nodiscard]] virtual ssize_t flistxattr(int descriptor, char *names, std::size_t size);
    [[nodiscard]] virtual ssize_t fgetxattr(int descriptor, const char *name, void *value, std::size_t size);
    [[nodiscard]] virtual int fsetxattr(int descriptor, const char *name, const void *value,
                                        std::size_t size);
    [[nodiscard]] virtual int fremovexattr(int descriptor, const char *name);
};

// The bytes of `path` for the system. Nothing if the path is empty or has a null character or half a
// surrogate pair, because replacing such characters would name another file.
[[nodiscard]] std::optional<QByteArray> encodedPath(const QString &path);

} // namespace Foundation
