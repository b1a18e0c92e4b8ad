#pragma once

#include "platform/ValueTransformer.h"

// Conversions between numbers and booleans. Integers have 32 bits unless said otherwise. Any value can be
// read as a boolean, see Foundation::Value; Null is false.

class VLIntToBool : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    bool allowsReverseTransformation() const override { return true; }
    // Whether the integer is not 0. The reverse gives the integer 1 or 0.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

class VLNegateIntToBool : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    bool allowsReverseTransformation() const override { return true; }
    // The opposite of VLIntToBool in both directions.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

class VLNumberBoolToNumberNum : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    bool allowsReverseTransformation() const override { return true; }
    // The boolean as the integer 1 or 0. The reverse gives whether the 64-bit integer is not 0.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

class VL1IfNot0 : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    // Whether the integer is not 0, as the integer 1 or 0. Has no reverse.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};

class VLOneIfOneInArray : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    bool allowsReverseTransformation() const override { return true; }
    // Required: despite its name, the result is the integer 1 for two or more elements and otherwise 0. The
    // reverse always gives an empty array.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

class VLValueMultipliedBy : public Foundation::ValueTransformer
{
public:
    explicit VLValueMultipliedBy(const Foundation::Value &value)
        : m_refValue(value)
    {
    }
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    // The product in single precision. Null stays Null.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;

private:
    Foundation::Value m_refValue;
};

class VLHeightForFontSize : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    // The height of a row for a font size, both in points: 1.4 times the size plus 2, truncated to an
    // integer. Null stays Null.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};
