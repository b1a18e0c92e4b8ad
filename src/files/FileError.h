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
    TooLarge,     // It is larger than the caller accepts.
    Interference, // Another program changed the file at the same time.
    Unconfirmed,  // The new content is in place, but a power failure may undo that.
};
template <class Value = void>
using FileResult = Result<Value, FileError>;

// The result of a single step. The code is the errno of the system call. There are no words, because they
// depend on the operation; see fileErrorText().
template <class Value = void>
using SystemResult = Result<Value, std::errc>;

// Makes a failure from errno. Must be called immediately after the failed call.
inline Failure<std::errc> systemFailure()
{
    return {static_cast<std::errc>(errno)};
}

} // namespace Foundation
