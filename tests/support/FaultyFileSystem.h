#pragma once

#include "foundation/FileSystem.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <functional>

// The real file system with faults that a test orders. Each call is recorded as "write new": what is done,
// and to what: the "folder", the "old" file, the "new" one, or the one "placed" under the name after the
// renaming.
class FaultyFileSystem : public Foundation::FileSystem
{
public:
    // Runs before the call of that title and place in `calls`, counted from 0; its result is the errno with
    // which the call fails, or 0 to let it happen.
    std::function<int(const QByteArray &title, qsizetype number)> before;
    // Runs after each call that was let through.
    std::function<void(const QByteArray &title, qsizetype number)> after;
    // No read or write moves more bytes than this at once.
    std::size_t largestTransfer = SIZE_MAX;
    QList<QByteArray> calls;

    // Counts and names calls from here on as if none had been made.
    void forget()
    {
        calls.clear();
        m_placed = false;
    }

    int openAt(int folder, const char *name, int flags, mode_t mode) override
    {
        const char *const what = flags & O_DIRECTORY ? "folder" : flags & O_CREAT ? "new" : "old";
        const int opened = run("openAt", what, [&] { return FileSystem::openAt(folder, name, flags, mode); });
        m_open.insert(opened, what);
        return opened;
    }
    int close(int descriptor) override
    {
        const int closed = FileSystem::close(descriptor);
        return run("close", m_open.value(descriptor), [&] { return closed; });
    }
    ssize_t readAt(int file, void *buffer, std::size_t size, off_t offset) override
    {
        const std::size_t part = std::min(size, largestTransfer);
        return run("readAt", m_open.value(file),
                   [&] { return FileSystem::readAt(file, buffer, part, offset); });
    }
    ssize_t write(int file, const void *bytes, std::size_t size) override
    {
        const std::size_t part = std::min(size, largestTransfer);
        return run("write", m_open.value(file), [&] { return FileSystem::write(file, bytes, part); });
    }
    int fsync(int file) override
    {
        return run("fsync", m_open.value(file), [&] { return FileSystem::fsync(file); });
    }
    int fstat(int file, struct stat *status) override
    {
        return run("fstat", m_open.value(file), [&] { return FileSystem::fstat(file, status); });
    }
    int fstatAt(int folder, const char *name, struct stat *status) override
    {
        return run("fstatAt", named(), [&] { return FileSystem::fstatAt(folder, name, status); });
    }
    int accessAt(int folder, const char *name, int mode) override
    {
        return run("accessAt", named(), [&] { return FileSystem::accessAt(folder, name, mode); });
    }
    ssize_t readLink(const char *path, char *buffer, std::size_t size) override
    {
        return run("readLink", named(), [&] { return FileSystem::readLink(path, buffer, size); });
    }
    int renameAt(int folder, const char *oldName, const char *newName) override
    {
        const int renamed =
            run("renameAt", "new", [&] { return FileSystem::renameAt(folder, oldName, newName); });
        m_placed = m_placed || renamed == 0;
        return renamed;
    }
    int unlinkAt(int folder, const char *name) override
    {
        return run("unlinkAt", "new", [&] { return FileSystem::unlinkAt(folder, name); });
    }
    int fchmod(int file, mode_t mode) override
    {
        return run("fchmod", m_open.value(file), [&] { return FileSystem::fchmod(file, mode); });
    }
    int fchown(int file, uid_t owner, gid_t group) override
    {
        return run("fchown", m_open.value(file), [&] { return FileSystem::fchown(file, owner, group); });
    }
    ssize_t flistxattr(int file, char *names, std::size_t size) override
    {
        return run("flistxattr", m_open.value(file),
                   [&] { return FileSystem::flistxattr(file, names, size); });
    }
    ssize_t fgetxattr(int file, const char *name, void *value, std::size_t size) override
    {
        return run("fgetxattr", m_open.value(file),
                   [&] { return FileSystem::fgetxattr(file, name, value, size); });
    }
    int fsetxattr(int file, const char *name, const void *value, std::size_t size) override
    {
        return run("fsetxattr", m_open.value(file),
                   [&] { return FileSystem::fsetxattr(file, name, value, size); });
    }
    int fremovexattr(int file, const char *name) override
    {
        return run("fremovexattr", m_open.value(file), [&] { return FileSystem::fremovexattr(file, name); });
    }

private:
    const char *named() const { return m_placed ? "placed" : "old"; }

    template <typename Call>
    auto run(const char *call, const char *what, Call perform) -> decltype(perform())
    {
        const QByteArray title = QByteArray(call) + ' ' + what;
        const qsizetype number = calls.size();
        calls.append(title);
        if (const int error = before ? before(title, number) : 0) {
            errno = error;
            return -1;
        }
        const auto result = perform();
        const int error = errno;
        if (after)
            after(title, number);
        errno = error;
        return result;
    }

    QHash<int, const char *> m_open;
    bool m_placed = false;
};
