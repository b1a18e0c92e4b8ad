#pragma once

#include "core/DocumentState.h"

// A number that tells whether records, categories and captions are still the objects that they were, in the
// same order and unchanged. Made of the change stamps of all of them, so that equal contents read twice
// differ. Looks at each record once.
quint64 contentStamp(const DocumentState &state);
