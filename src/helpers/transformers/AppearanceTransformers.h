#pragma once

#include "platform/ValueTransformer.h"

// Converts a colour dictionary into a colour and back, see VLColorUtilOSX.
class VLDictToNSColor : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Color; }
    bool allowsReverseTransformation() const override { return true; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    // Returns Null if the value is no colour.
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

// Converts the data of a picture, in any format that the desktop reads, into a picture, and a picture into
// TIFF data. Null becomes an empty picture; data that is no picture becomes Null.
class VLImgData : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Image; }
    bool allowsReverseTransformation() const override { return true; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};
