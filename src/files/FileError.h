#pragma once

#include "values/Result.h"

#include <cerrno>
#include <system_error>

namespace Foundation
{

// Why a file could not be read or written. Every such failure has words.
enum class FileError {
    System,       // A system call failed.
    BadName,      // No file can have that name.
    WrongKind,    // It is a folder, a device or another special file.
    TooLarge,     // It is larger than the caller takes.
    Interference, // Another program changed the file at the same time.
    Unconfirmed,  // The new content is in place, but a power failure may undo that.
};
template <class Value = void>
using FileResult = Result<Value, FileError>;

// The steps below have the number of the system (errno) as their code, and no words: those depend on what was
// tried, see fileErrorText.
template <class Value = void>
using SystemResult = Result<Value, std::errc>;

// To be called before anything else can change errno.
inline Failure<std::errc> systemFailure()
{
    return {static_cast<std::errc>(errno)};
}

} // namespace Foundation
