#pragma once

#include "platform/ValueTransformer.h"

// Always the text that was given to the constructor.
class VLReturnInitStr : public Foundation::ValueTransformer
{
public:
    explicit VLReturnInitStr(const QString &string)
        : myRefString(string)
    {
    }
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    Foundation::Value transformedValue(const Foundation::Value &) const override { return myRefString; }

private:
    const QString myRefString;
};

// Whether a text is empty after the characters " " at both ends are removed. True for Null.
class VLEmptyTrimmedString : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};

// The opposite of VLEmptyTrimmedString.
class VLFilledTrimmedString : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};

// The characters of an archived styled text, without the styles. Reads keyed archives and the older stream
// archives ("streamtyped", version 4), whose first string object contains the characters. Null for other
// data.
class VLUnarchivieFromDataToText : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};
