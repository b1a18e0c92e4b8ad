#include "window/desktop/DesktopImageReader.h"

#include <QBuffer>
#include <QImage>

using Foundation::ImageObject;
using Foundation::Ref;

namespace
{

class DesktopImage : public ImageObject
{
public:
    explicit DesktopImage(const QImage &image)
        : m_image(image)
    {
    }
    bool isEmpty() const override { return m_image.isNull(); }
    QByteArray tiffRepresentation() const override
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        const bool isWritten =
            !isEmpty() && buffer.open(QIODevice::WriteOnly) && m_image.save(&buffer, "TIFF");
        return isWritten ? bytes : QByteArray();
    }

private:
    QImage m_image;
};

} // namespace

Ref<ImageObject> DesktopImageReader::imageFromData(const QByteArray &data) const
{
    const QImage image = QImage::fromData(data);
    return image.isNull() ? nullptr : Ref<ImageObject>(new DesktopImage(image));
}

Ref<ImageObject> DesktopImageReader::emptyImage() const
{
    return Ref<ImageObject>(new DesktopImage(QImage()));
}
