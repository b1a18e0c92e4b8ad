#pragma once

#include "platform/ValueTransformer.h"

// Replaces the date and time tags in a string by those of the present moment, in local time:
// <yy> year in two digits, <YY> full year, <mm> month, <dd> day, <hh> hour of 24, <ii> minute, <ss> second,
// each but <YY> with a leading zero. Letter case counts, and all else in the string stays. No way back.
class VLDateTagElaborated : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    // Always a text: empty for Null and for anything that is no text.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};
