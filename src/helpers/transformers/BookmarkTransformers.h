#pragma once

#include "platform/ValueTransformer.h"

// Of the file behind a bookmark (see FileBookmark), whether the bookmark is stale or not. An empty text for
// Null, Null for a bookmark that leads nowhere.

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
