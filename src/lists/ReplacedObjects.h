#pragma once

#include "values/Array.h"
#include "values/Dictionary.h"

namespace Foundation
{

// After a list was read again, it has new objects in place of the former ones. Replaces each of `objects`
// that is in `former` by the object at the same position of `present`; other objects are not changed. Does
// nothing unless both lists have the same length. Takes one pass over the lists, or none if `objects` is
// empty.
void replaceObjects(const Array &former, const Array &present, const std::vector<Ref<Dictionary> *> &objects);

} // namespace Foundation
