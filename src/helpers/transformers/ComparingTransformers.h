#pragma once

#include "platform/ValueTransformer.h"
#include "values/Array.h"

// Comparisons with a value that is given to the constructor. Null stays Null, so that a control shows its
// state without a value.

// Base class of the comparisons with a 32-bit number. Required: they read their input as 16 bits, so that
// 65539 equals 3. Interface files use them for tags and small codes. The result is the integer 1 or 0.
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

// The same with a reverse: true becomes the number, false becomes Null.
class VLValueIsEqualToRef : public VL1IfEqualToRef
{
public:
    using VL1IfEqualToRef::VL1IfEqualToRef;
    bool allowsReverseTransformation() const override { return true; }
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

// For interface files, which can refer only to classes that need no argument.
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

// Whether a text equals the given one. Required: the declared class is String although the result is a
// boolean, because bindings rely on the declaration.
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

// Whether a value is among the given ones. Numbers of different types are compared by value.
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

// The same for a set, which is given as an array.
class VLValueIsInSet : public VLValueIsInArray
{
public:
    using VLValueIsInArray::VLValueIsInArray;
};
