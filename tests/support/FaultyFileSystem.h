#pragma once

#include "files/FileSystem.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <functional>

// The real file system with injected faults. Each call is recorded as a text such as "write new", which
// consists of the operation and its object: the "folder", the "old" file, the "new" file or its "lock", or
// the file that is "placed" under the name after renaming.
class FaultyFileSystem : public Foundation::FileSystem
{
public:
    // Called before each call, with its text and its index in `calls`. Returns the errno with which the call
    // fails, or 0 to perform it.
    std::function<int(const QByteArray &title, qsizetype number)> before;
    // Called after each call that was performed.
    std::function<void(const QByteArray &title, qsizetype number)> after;
    // The maximum number of bytes of one read or write.
    std::size_t largestTransfer = SIZE_MAX;
    QList<QByteArray> calls;

    // Forgets all recorded calls.
    void forget()
    {
        calls.clear();
        m_placed = false;
    }

    int openAt(int folder, const char *name, int flags, mode_t mode) override
    {
        const char *const what = flags & O_DIRECTORY ? "folder" : flags & O_CREAT ? "new" : "old";
        const int opened = run("openAt", what, [&] { return m_real.openAt(folder, name, flags, mode); });
        m_open.insert(opened, what);
        return opened;
    }
    int close(int file) override
    {
        const int closed = m_real.close(file);
        return run("close", m_open.value(file), [&] { return closed; });
    }
    ssize_t readAt(int file, void *to, std::size_t size, off_t offset) override
    {
        return onFile("readAt", &FileSystem::readAt, file, to, std::min(size, largestTransfer), offset);
    }
    ssize_t write(int file, const void *bytes, std::size_t size) override
    {
        return onFile("write", &FileSystem::write, file, bytes, std::min(size, largestTransfer));
    }
    int duplicate(int file) override
    {
        const int second = onFile("duplicate", &FileSystem::duplicate, file);
        m_open.insert(second, "lock");
        return second;
    }
    int lock(int file) override { return onFile("lock", &FileSystem::lock, file); }
    int fsync(int file) override { return onFile("fsync", &FileSystem::fsync, file); }
    int fstat(int file, struct stat *to) override { return onFile("fstat", &FileSystem::fstat, file, to); }
    int fstatAt(int folder, const char *name, struct stat *to) override
    {
        return run("fstatAt", named(), [&] { return m_real.fstatAt(folder, name, to); });
    }
    int statAt(int folder, const char *name, struct stat *to) override
    {
        return run("statAt", named(), [&] { return m_real.statAt(folder, name, to); });
    }
    int accessAt(int folder, const char *name, int mode) override
    {
        return run("accessAt", named(), [&] { return m_real.accessAt(folder, name, mode); });
    }
    ssize_t readLink(const char *path, char *to, std::size_t size) override
    {
        return run("readLink", named(), [&] { return m_real.readLink(path, to, size); });
    }
    int renameAt(int folder, const char *from, const char *to) override
    {
        const int renamed = run("renameAt", "new", [&] { return m_real.renameAt(folder, from, to); });
        m_placed = m_placed || renamed == 0;
        return renamed;
    }
    int unlinkAt(int folder, const char *name) override
    {
        return run("unlinkAt", "new", [&] { return m_real.unlinkAt(folder, name); });
    }
    int chmodAt(int folder, const char *name, mode_t mode) override
    {
        return run("chmodAt", "folder", [&] { return m_real.chmodAt(folder, name, mode); });
    }
    int mkdirAt(int folder, const char *name, mode_t mode) override
    {
        return run("mkdirAt", "folder", [&] { return m_real.mkdirAt(folder, name, mode); });
    }
    int readNames(int folder, QList<QByteArray> *names) override
    {
        return onFile("readNames", &FileSystem::readNames, folder, names);
    }
    int fchmod(int file, mode_t mode) override { return onFile("fchmod", &FileSystem::fchmod, file, mode); }
    int fchown(int file, uid_t owner, gid_t group) override
    {
        return onFile("fchown", &FileSystem::fchown, file, owner, group);
    }
    ssize_t flistxattr(int file, char *to, std::size_t size) override
    {
        return onFile("flistxattr", &FileSystem::flistxattr, file, to, size);
    }
    ssize_t fgetxattr(int file, const char *name, void *to, std::size_t size) override
    {
        return onFile("fgetxattr", &FileSystem::fgetxattr, file, name, to, size);
    }
    int fsetxattr(int file, const char *name, const void *value, std::size_t size) override
    {
        return onFile("fsetxattr", &FileSystem::fsetxattr, file, name, value, size);
    }
    int fremovexattr(int file, const char *name) override
    {
        return onFile("fremovexattr", &FileSystem::fremovexattr, file, name);
    }

private:
    const char *named() const { return m_placed ? "placed" : "old"; }

    template <typename Result, typename... Declared, typename... Given>
    Result onFile(const char *title, Result (FileSystem::*call)(int, Declared...), int file, Given... given)
    {
        return run(title, m_open.value(file), [&] { return (m_real.*call)(file, given...); });
    }

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

    Foundation::FileSystem m_real;
    QHash<int, const char *> m_open;
    bool m_placed = false;
};
