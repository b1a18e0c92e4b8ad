#include "core/ContentStamp.h"

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Value;

namespace
{

void mix(quint64 &sum, quint64 number)
{
    constexpr quint64 Prime = 1099511628211U; // FNV-1a, taken over whole numbers
    sum = (sum ^ number) * Prime;
}

void mixArray(quint64 &sum, const Array &array)
{
    mix(sum, quint64(array.count()));
    for (const Value &entry : array.values) {
        if (entry.type() == Value::Type::Dictionary)
            mix(sum, static_cast<const Dictionary *>(entry.sharedObject())->changeStamp());
    }
}

} // namespace

quint64 contentStamp(const DocumentState &state)
{
    quint64 sum = 14695981039346656037U;
    mixArray(sum, *state.myArray);
    mixArray(sum, *state.myCategoryArray);
    mix(sum, state.myLabelDictionary ? state.myLabelDictionary->changeStamp() : 0);
    return sum;
}
