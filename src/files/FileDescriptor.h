#pragma once

#include "files/FileSystem.h"

#include <cerrno>

namespace Foundation
{

// Repeats a system call while signals interrupt it, up to a limit, because a file system in user space may
// always report an interruption. Must not be used for fsync() of a file and for close().
template <typename Call>
[[nodiscard]] auto uninterrupted(Call call)
{
    constexpr int MaximumAttempts = 100;
    auto result = call();
    for (int attempt = 1; result < 0 && errno == EINTR && attempt < MaximumAttempts; ++attempt)
        result = call();
    return result;
}

// Owns an open file and closes it in the destructor. A negative descriptor means none.
class FileDescriptor
{
public:
    explicit FileDescriptor(FileSystem &files, int descriptor = -1)
        : m_files(files)
        , m_descriptor(descriptor)
    {
    }
    ~FileDescriptor() { close(); }
    Q_DISABLE_COPY_MOVE(FileDescriptor)

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }
    // Closes the former file and owns another one.
    void reset(int descriptor)
    {
        close();
        m_descriptor = descriptor;
    }
    // Returns the result of the system call, or 0 if no file is open.
    int close()
    {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        return descriptor < 0 ? 0 : m_files.close(descriptor);
    }

private:
    FileSystem &m_files;
    int m_descriptor;
};

} // namespace Foundation
