#pragma once

#include "values/Color.h"
#include "values/Ref.h"

#include <QByteArray>

namespace Foundation
{

// An object that a value can carry and that is no number, text or collection. Only ColorObject can be
// archived.
class OpaqueObject : public RefCounted
{
public:
    virtual ~OpaqueObject() = default;
    virtual bool isEqual(const OpaqueObject &other) const { return this == &other; }
};

class ColorObject : public OpaqueObject
{
public:
    explicit ColorObject(const Color &ofColor)
        : color(ofColor)
    {
    }
    bool isEqual(const OpaqueObject &other) const override
    {
        const auto *otherColor = dynamic_cast<const ColorObject *>(&other);
        return otherColor && otherColor->color == color;
    }

    const Color color;
};

// A picture. The window layer implements it.
class ImageObject : public OpaqueObject
{
public:
    virtual bool isEmpty() const = 0;
    // Returns a null array for an empty image.
    virtual QByteArray tiffRepresentation() const = 0;
};

} // namespace Foundation
