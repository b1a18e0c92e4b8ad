#pragma once

#include "core/DocumentState.h"

// An address book such as people have: records with all sixteen texts, a date, a use count and a company flag
// in eight categories, some names and notes outside ASCII. About 590 bytes a record in an archive. The same
// for the same count on every machine; decrypted, under "correct horse", never saved.
DocumentState sampleDocument(int recordCount);
