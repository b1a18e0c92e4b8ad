#pragma once

#include "values/Result.h"

namespace Foundation
{

// Why a document could not be opened or saved. All failures have words but the two that say otherwise.
enum class DocumentError {
    File,        // The file cannot be read or written.
    Content,     // The bytes are no document, or what would be saved could not be opened again.
    NotNow,      // The document may not be written in its present state.
    FileTouched, // Another program changed or removed the file, and without a window the user cannot be
                 // asked.
    NewerFormat, // A later release wrote the file. The user was told already, so there are no words.
    GivenUp,     // The user cancelled. There are no words.
};
template <class Value = void>
using DocumentResult = Result<Value, DocumentError>;

} // namespace Foundation
