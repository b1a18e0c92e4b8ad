#pragma once

#include "values/Value.h"

namespace Foundation
{

// The text that a field shows for a value. Documents of other programs may have any type where a text is
// usual. A text is returned as it is, a number in digits (true and false as 1 and 0), a date in the user's
// format and local time, an array as its entries joined by commas, limited to 100 entries and some thousand
// UTF-16 units. Returns a null text for all other types.
QString displayText(const Value &value);

// Whether a field shows both values in the same way: an absent text looks like an empty one, and a number
// looks like a text of its digits.
bool isShownAlike(const Value &a, const Value &b);

} // namespace Foundation
