#pragma once

#include "core/DocumentState.h"

// A typical address book: records with sixteen texts, a date, a use count and a company flag, in eight
// categories, with some names and notes outside ASCII. A record takes about 590 bytes in an archive. The
// content depends only on the count. The document is open, was never saved, and has the password "correct
// horse".
DocumentState sampleDocument(int recordCount);
