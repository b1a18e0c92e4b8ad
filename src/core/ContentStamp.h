#pragma once

#include "core/DocumentState.h"

// A number that stays equal as long as records, categories and captions are the same objects, in the same
// order and unchanged. It is computed from the change stamps of all of them, so that equal content that is
// read twice has different numbers. Takes one pass over the records.
quint64 contentStamp(const DocumentState &state);
