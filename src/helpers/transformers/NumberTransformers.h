#pragma once

#include "platform/ValueTransformer.h"

// Numbers and truth values into one another. An integer is one of 32 bits; a truth value reads from anything
// as Foundation::Value tells, from nothing as false.

class VLIntToBool : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    bool allowsReverseTransformation() const override { return true; }
    // Whether the 32-bit integer is not 0; back as the integer 1 or 0.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

class VLNegateIntToBool : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    bool allowsReverseTransformation() const override { return true; }
    // The opposite of VLIntToBool, both ways.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

class VLNumberBoolToNumberNum : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    bool allowsReverseTransformation() const override { return true; }
    // The truth value as the integer 1 or 0; back, whether the 64-bit integer is not 0.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

class VL1IfNot0 : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    // As VLIntToBool, but as the integer 1 or 0 and with no way back.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};

class VLOneIfOneInArray : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    bool allowsReverseTransformation() const override { return true; }
    // In spite of its name the integer 1 for two or more elements, otherwise 0; interfaces rely on it. Back
    // it gives an empty array, whatever it is given.
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
    // In single precision. Null stays Null.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;

private:
    Foundation::Value m_refValue;
};

class VLHeightForFontSize : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    // The height of a row for a font's size, both in points: 1.4 times the size and 2, cut to an integer.
    // Null stays Null.
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};
