#include "helpers/transformers/AppearanceTransformers.h"

#include "helpers/VLColorUtilOSX.h"
#include "platform/Services.h"

using Foundation::ColorObject;
using Foundation::ImageObject;
using Foundation::OpaqueObject;
using Foundation::Ref;
using Foundation::Value;

Value VLDictToNSColor::transformedValue(const Value &value) const
{
    return Ref<OpaqueObject>(new ColorObject(VLColorUtilOSX::NSColorFromDict(value.dictionary())));
}

Value VLDictToNSColor::reverseTransformedValue(const Value &value) const
{
    const Ref<ColorObject> color = value.color();
    return color ? Value(VLColorUtilOSX::dictFromNSColor(color->color)) : Value();
}

Value VLImgData::transformedValue(const Value &value) const
{
    const auto &reader = Foundation::Services::shared().imageReader();
    const Ref<ImageObject> image =
        value.isNull() ? reader.emptyImage() : reader.imageFromData(value.dataValue());
    return Ref<OpaqueObject>(image.get());
}

Value VLImgData::reverseTransformedValue(const Value &value) const
{
    const Ref<OpaqueObject> object = value.opaque();
    const auto *image = dynamic_cast<const ImageObject *>(object.get());
    return image ? Value(image->tiffRepresentation()) : Value();
}
