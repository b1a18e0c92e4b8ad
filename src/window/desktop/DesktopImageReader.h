#pragma once

#include "platform/Services.h"

// Pictures in the forms that Qt's image plug-ins read; TIFF, which is written too, comes with its package of
// further formats.
class DesktopImageReader : public Foundation::ImageReader
{
public:
    Foundation::Ref<Foundation::ImageObject> imageFromData(const QByteArray &data) const override;
    Foundation::Ref<Foundation::ImageObject> emptyImage() const override;
};
