#include "window/desktop/DesktopImageReader.h"

#include "helpers/transformers/AppearanceTransformers.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>

using Foundation::Value;

namespace
{

TEST(DesktopImageReader, PicturesComeInAndGoOutAsTiff)
{
    QImage picture(3, 2, QImage::Format_ARGB32);
    picture.fill(QColor(10, 20, 30));
    picture.setPixelColor(2, 1, QColor(200, 100, 50));
    QByteArray png;
    QBuffer buffer(&png);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "PNG"));

    DesktopImageReader reader;
    Foundation::Services::shared().setImageReader(&reader);
    const VLImgData transformer;
    const Value tiff = transformer.reverseTransformedValue(transformer.transformedValue(png));
    QImage back;
    EXPECT_TRUE(back.loadFromData(tiff.dataValue(), "TIFF"));
    EXPECT_EQ(back.convertToFormat(QImage::Format_ARGB32), picture);
    EXPECT_TRUE(transformer.transformedValue(QByteArray("no picture")).isNull());
    Foundation::Services::shared().setImageReader(nullptr);
}

} // namespace
