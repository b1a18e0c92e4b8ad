#pragma once

#include "values/Color.h"
#include "values/Dictionary.h"

// Converts between colours and colour dictionaries, which documents store: numbers from 0 to 1 of the
// calibrated RGB space under the keys "r", "g", "b" and "a".
class VLColorUtilOSX
{
public:
    VLColorUtilOSX() = delete;

    // Reads the components in single precision and limits them to 0 to 1. An absent component, NaN and every
    // component of a null dictionary become 0.
    static Foundation::Color NSColorFromDict(const Foundation::Ref<Foundation::Dictionary> &dict);

    // A new dictionary with the components in double precision.
    static Foundation::Ref<Foundation::Dictionary> dictFromNSColor(const Foundation::Color &color);
};
