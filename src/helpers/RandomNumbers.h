#pragma once

#include <QtGlobal>

// A whole number from `lowerBound` to `upperBound`, both inclusive: the lower bound plus random() modulo the
// size of the range. Seeds the system's generator from the clock at its first call in the process. Not for
// secrets. `upperBound` must not be below `lowerBound`, and the range must be below 2^63. Main thread only.
qint64 randomLongInRange(qint64 lowerBound, qint64 upperBound);
