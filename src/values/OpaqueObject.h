#pragma once

#include "values/Color.h"
#include "values/Ref.h"

#include <QByteArray>

namespace Foundation
{

// What a value can carry though it is neither number, text nor collection. Of its kinds only the colour has a
// form in archives.
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

// A picture, as the window layer keeps it.
class ImageObject : public OpaqueObject
{
public:
    virtual bool isEmpty() const = 0;
    // Null for an empty image.
    virtual QByteArray tiffRepresentation() const = 0;
};

} // namespace Foundation
