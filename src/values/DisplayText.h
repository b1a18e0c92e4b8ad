#pragma once

#include "values/Value.h"

namespace Foundation
{

// What a field for text shows of a value, which a document by another hand may have made of any kind: texts
// as they are, numbers in digits (true and false as 1 and 0), dates in the user's form and local time, the
// entries of an array behind one another, at most a hundred and some thousand units. Nothing, as a null text,
// of all else.
QString displayText(const Value &value);

// Whether a field shows the same of both: an absent text and an empty one look alike, and so do a number and
// its digits.
bool isShownAlike(const Value &a, const Value &b);

} // namespace Foundation
