#pragma once

#include "core/DocumentState.h"
#include "platform/Services.h"
#include "values/Result.h"

enum class ReadError {
    NotADocument, // no keyed archive of a dictionary, or damaged; the state is unchanged
    NewerFormat,  // written by a later release; the state has its version and must not be used
};

// Loads the content of a document file into the state without deciphering it. Needs no password and makes no
// records. A value of a wrong type counts as absent; an absent value makes deciphering fail later. The oldest
// layout has no creation date: such a document was created now, by `clock`. After success the document is
// locked. Failures have no words.
Foundation::Result<void, ReadError> readDocument(const QByteArray &bytes, DocumentState &state,
                                                 const Foundation::Clock &clock);
