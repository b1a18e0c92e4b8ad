#pragma once

#include "platform/ValueTransformer.h"

// The path and the name of the file to which a bookmark refers (see FileBookmark), even if the bookmark is
// stale. Null becomes an empty text; a bookmark that resolves to no file becomes Null.

class VLPathFromBookmark : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};

class VLNameFromBookmark : public Foundation::ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    Foundation::Value transformedValue(const Foundation::Value &value) const override;
};
