#pragma once

#include "values/Array.h"
#include "values/Dictionary.h"

namespace Foundation
{

// A list that is read anew holds new objects in place of the former ones. Puts in place of each of `objects`
// that stands in `former` the one that stands at the same place of `present`; an object that is not there
// stays. Nothing happens unless both lists are equally long. Walks the lists once if there are objects at
// all.
void replaceObjects(const Array &former, const Array &present, const std::vector<Ref<Dictionary> *> &objects);

} // namespace Foundation
