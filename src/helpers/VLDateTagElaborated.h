#pragma once

#include "platform/ValueTransformer.h"

// Replaces the date and time tags in a text by the current local time: <yy> year in two digits, <YY> full
// year, <mm> month, <dd> day, <hh> hour from 00 to 23, <ii> minute, <ss> second. All but <YY> have two
// digits. Tags are case-sensitive. Has no reverse. Prescribed; no interface file
// names it yet.
class VLDateTagElaborated : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    // Always returns a text, which is empty if `value` is no text.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};
