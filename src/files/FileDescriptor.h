#pragma once

#include "files/FileSystem.h"

#include <cerrno>

namespace Foundation
{

// Makes a system call again while signals interrupt it. Not for ever: a file system that runs as an ordinary
// program may answer so every time. Not for fsync of a file, nor for close.
template <typename Call>
[[nodiscard]] auto uninterrupted(Call call)
{
    constexpr int MaximumAttempts = 100;
    auto result = call();
    for (int attempt = 1; result < 0 && errno == EINTR && attempt < MaximumAttempts; ++attempt)
        result = call();
    return result;
}

// Owns an open file and closes it when it goes. A negative descriptor stands for none.
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
    // Closes what was held before.
    void reset(int descriptor)
    {
        close();
        m_descriptor = descriptor;
    }
    // Returns 0 or -1 with errno, as the call itself; 0 if nothing is open.
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
