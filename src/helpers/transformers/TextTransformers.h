#pragma once

#include "platform/ValueTransformer.h"

// The text given once, whatever the input.
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

// Whether nothing remains of a text once the blanks at both its ends are gone; only the character " " is one.
// True for Null.
class VLEmptyTrimmedString : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};

// The opposite.
class VLFilledTrimmedString : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};

// The characters of an archived styled text, without its styles: of a keyed archive, or of the older archive
// that is one stream ("streamtyped", version 4), where the first string object holds them. Null for data that
// is neither.
class VLUnarchivieFromDataToText : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};
