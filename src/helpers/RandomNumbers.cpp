#include "helpers/RandomNumbers.h"

#include <cstdlib>
#include <ctime>

qint64 randomLongInRange(qint64 lowerBound, qint64 upperBound)
{
    static bool seeded = false;
    if (!seeded) {
        srandom(unsigned(time(nullptr)));
        seeded = true;
    }
    return lowerBound + random() % (upperBound - lowerBound + 1);
}
