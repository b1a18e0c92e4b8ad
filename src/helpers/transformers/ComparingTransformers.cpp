#include "helpers/transformers/ComparingTransformers.h"

#include <algorithm>

using Foundation::Value;

Value NumberComparison::transformedValue(const Value &value) const
{
    return value.isNull() ? Value() : Value(qint32(holds(value.shortValue())));
}

Value VLValueIsEqualToRef::reverseTransformedValue(const Value &value) const
{
    return value.boolValue() ? Value(refValue()) : Value();
}

Value VLValueIsEqualToStr::transformedValue(const Value &value) const
{
    return value.isNull() ? Value() : Value(value.isString() && value.stringValue() == myRefString);
}

Value VLValueIsInArray::transformedValue(const Value &value) const
{
    if (value.isNull())
        return {};
    const auto isEqual = [&value](const Value &other) {
        if (value.isNumber() && other.isNumber())
            return value.longValue() == other.longValue() && value.doubleValue() == other.doubleValue();
        return value == other;
    };
    return myRefArray && std::any_of(myRefArray->values.begin(), myRefArray->values.end(), isEqual);
}
