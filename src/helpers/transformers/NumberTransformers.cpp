#include "helpers/transformers/NumberTransformers.h"

#include "values/Array.h"

using Foundation::Array;
using Foundation::Value;

Value VLIntToBool::transformedValue(const Value &value) const
{
    return value.intValue() != 0;
}

Value VLIntToBool::reverseTransformedValue(const Value &value) const
{
    return qint32(value.boolValue());
}

Value VLNegateIntToBool::transformedValue(const Value &value) const
{
    return value.intValue() == 0;
}

Value VLNegateIntToBool::reverseTransformedValue(const Value &value) const
{
    return qint32(!value.boolValue());
}

Value VLNumberBoolToNumberNum::transformedValue(const Value &value) const
{
    return qint32(value.boolValue());
}

Value VLNumberBoolToNumberNum::reverseTransformedValue(const Value &value) const
{
    return value.longValue() != 0;
}

Value VL1IfNot0::transformedValue(const Value &value) const
{
    return qint32(value.intValue() != 0);
}

Value VLOneIfOneInArray::transformedValue(const Value &value) const
{
    const auto array = value.array();
    return qint32(array && array->count() > 1);
}

Value VLOneIfOneInArray::reverseTransformedValue(const Value &) const
{
    return Array::create();
}

Value VLValueMultipliedBy::transformedValue(const Value &value) const
{
    return value.isNull() ? Value() : Value(value.floatValue() * m_refValue.floatValue());
}

Value VLHeightForFontSize::transformedValue(const Value &value) const
{
    if (value.isNull())
        return {};
    const float height = value.floatValue() * 1.4F + 2.0F;
    return Value(height).intValue(); // intValue() also accepts numbers outside the range.
}
