#pragma once

#include "platform/Services.h"

// Reads pictures in the formats of Qt's image plug-ins. TIFF, which is also written, needs Qt's package of
// additional image formats.
class DesktopImageReader : public Foundation::ImageReader
{
public:
    Foundation::Ref<Foundation::ImageObject> imageFromData(const QByteArray &data) const override;
    Foundation::Ref<Foundation::ImageObject> emptyImage() const override;
};
