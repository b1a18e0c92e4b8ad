#pragma once

#include "core/DocumentState.h"
#include "platform/Services.h"

enum class ReadOutcome {
    Loaded,       // still enciphered; the document shows its locked face
    NotADocument, // no keyed archive of a dictionary, or a damaged one: the state is as it was
    NewerFormat,  // of a later release: the state has its version and is shut, and must not be opened
};

// Loads what lies in a document file, still enciphered, into the state. Needs no password and makes no
// record. Values of a wrong type count as absent; what is absent shows when the document is deciphered.
// The oldest layout has no creation date: such a document was created now, by `clock`.
ReadOutcome readDocument(const QByteArray &bytes, DocumentState &state, const Foundation::Clock &clock);
