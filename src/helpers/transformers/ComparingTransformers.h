#pragma once

#include "platform/ValueTransformer.h"
#include "values/Array.h"

// Comparisons with a value given once. Null stays Null, which a control shows as its state without a value.

// Those with a 32-bit number read their input as 16 bits first, so that 65539 equals 3: what interfaces give
// them are tags and small codes. They give the integer 1 or 0.
class NumberComparison : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;

protected:
    explicit NumberComparison(qint32 value)
        : myRefValue(value)
    {
    }
    virtual bool holds(qint32 value) const = 0;
    qint32 refValue() const { return myRefValue; }

private:
    const qint32 myRefValue;
};

class VL1IfEqualToRef : public NumberComparison
{
public:
    explicit VL1IfEqualToRef(qint32 value)
        : NumberComparison(value)
    {
    }

protected:
    bool holds(qint32 value) const override { return value == refValue(); }
};

// The same with a way back: true gives the number, false gives Null.
class VLValueIsEqualToRef : public VL1IfEqualToRef
{
public:
    using VL1IfEqualToRef::VL1IfEqualToRef;
    bool allowsReverseTransformation() const override { return true; }
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

// For interface files, which reach a class that needs no argument by its name.
template <qint32 Digit>
class VLValueIsDigit : public VLValueIsEqualToRef
{
public:
    VLValueIsDigit()
        : VLValueIsEqualToRef(Digit)
    {
    }
};
using VLValueIs0 = VLValueIsDigit<0>;
using VLValueIs1 = VLValueIsDigit<1>;
using VLValueIs2 = VLValueIsDigit<2>;
using VLValueIs3 = VLValueIsDigit<3>;
using VLValueIs4 = VLValueIsDigit<4>;
using VLValueIs5 = VLValueIsDigit<5>;
using VLValueIs6 = VLValueIsDigit<6>;
using VLValueIs7 = VLValueIsDigit<7>;
using VLValueIs8 = VLValueIsDigit<8>;
using VLValueIs9 = VLValueIsDigit<9>;

class VLValueNotEqualToRef : public NumberComparison
{
public:
    explicit VLValueNotEqualToRef(qint32 value)
        : NumberComparison(value)
    {
    }

protected:
    bool holds(qint32 value) const override { return value != refValue(); }
};

class VLValueIsGreaterOfRef : public NumberComparison
{
public:
    explicit VLValueIsGreaterOfRef(qint32 value)
        : NumberComparison(value)
    {
    }

protected:
    bool holds(qint32 value) const override { return value > refValue(); }
};

class VLValueIsSmallerOfRef : public NumberComparison
{
public:
    explicit VLValueIsSmallerOfRef(qint32 value)
        : NumberComparison(value)
    {
    }

protected:
    bool holds(qint32 value) const override { return value < refValue(); }
};

// Whether a text is exactly the one given. Says that it gives a text, and gives a truth value: so it has
// always been declared, and a binding asks the declaration.
class VLValueIsEqualToStr : public Foundation::ValueTransformer
{
public:
    explicit VLValueIsEqualToStr(const QString &string)
        : myRefString(string)
    {
    }
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;

private:
    const QString myRefString;
};

// Whether a value is among those given; numbers are equal whatever kind they are of.
class VLValueIsInArray : public Foundation::ValueTransformer
{
public:
    explicit VLValueIsInArray(const Foundation::Ref<Foundation::Array> &array)
        : myRefArray(array)
    {
    }
    ValueClass transformedValueClass() const override { return ValueClass::Number; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;

private:
    const Foundation::Ref<Foundation::Array> myRefArray;
};

// The same for a set, which is given as an array in any order.
class VLValueIsInSet : public VLValueIsInArray
{
public:
    using VLValueIsInArray::VLValueIsInArray;
};
