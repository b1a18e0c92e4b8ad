#pragma once

#include "platform/ValueTransformer.h"

// A colour dictionary into a colour and back, as VLColorUtilOSX does.
class VLDictToNSColor : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Color; }
    bool allowsReverseTransformation() const override { return true; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    // Null for what is no colour.
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};

// The data of a picture into the picture, in whatever form the desktop reads; back as TIFF. Null becomes an
// empty picture, and data that is none becomes Null.
class VLImgData : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::Image; }
    bool allowsReverseTransformation() const override { return true; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
    Foundation::Value reverseTransformedValue(const Foundation::Value &value) const override;
};
