#pragma once

#include "values/Color.h"
#include "values/Dictionary.h"

// The one place where colour dictionaries and colours meet: keys "r", "g", "b", "a", numbers from 0 to 1 of
// the calibrated RGB space. Documents store the dictionary.
class VLColorUtilOSX
{
public:
    VLColorUtilOSX() = delete;

    // Reads in single precision; what the dictionary lacks reads as 0, and so does all of a null dictionary.
    // A colour holds components from 0 to 1 only: numbers outside, which a damaged document can hold, become
    // the nearer end, and no number becomes 0.
    static Foundation::Color NSColorFromDict(const Foundation::Ref<Foundation::Dictionary> &dict);

    // A new dictionary with the components in double precision.
    static Foundation::Ref<Foundation::Dictionary> dictFromNSColor(const Foundation::Color &color);
};
