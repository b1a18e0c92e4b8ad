#pragma once

#include <QtGlobal>

// A random integer from `lowerBound` to `upperBound`, both inclusive: the lower bound plus random() modulo
// the size of the range. The first call in the process seeds the generator of the C library from the clock,
// so the numbers can be guessed and must not be used for secrets. `upperBound` must not be below
// `lowerBound`, and the range must be below 2^63. Main thread only.
qint64 randomLongInRange(qint64 lowerBound, qint64 upperBound);
