#pragma once

#include "core/DocumentState.h"
#include "platform/Services.h"
#include "values/Result.h"

enum class ReadError {
    NotADocument, // no keyed archive of a dictionary, or a damaged one: the state is as it was
    NewerFormat,  // of a later release: the state has its version and is shut, and must not be opened
};

// Loads what lies in a document file, still enciphered, into the state. Needs no password and makes no
// record. Values of a wrong type count as absent; what is absent shows when the document is deciphered.
// The oldest layout has no creation date: such a document was created now, by `clock`.
// A document that was loaded shows its locked face. A failure has no words.
Foundation::Result<void, ReadError> readDocument(const QByteArray &bytes, DocumentState &state,
                                                 const Foundation::Clock &clock);
