#include "window/list/VLLabelDrawerExt.h"

#include "helpers/VLStringUtils.h"
#include "window/desktop/DesktopText.h"

#include <QPainter>

#include <cmath>

using Foundation::Color;
using Foundation::TextAttributes;

namespace
{

// The radius of the ends is half of the height. The text begins and ends 0.6 of it from the ends of the
// label.
constexpr double TextInset = 0.6;
constexpr double RoomAroundArrowText = 8;

void drawArrow(QPainter &painter, const QPolygonF &outline, const QString &string,
               const TextAttributes &attributes, qint32 width, qint32 height, const Color &backColor)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colorOfComponents(backColor));
    painter.drawPolygon(outline);
    const QRectF room(RoomAroundArrowText, 0, width - 2 * RoomAroundArrowText, height);
    VLLabelDrawerExt::drawFittedText(painter, string, room, attributes);
}

// Capital letters have the same distance from the upper and the lower edge. The position is rounded to a
// pixel of the device, because the rasteriser would otherwise choose one.
double baselineIn(const QPainter &painter, const QRectF &room)
{
    const double capHeight = QFontMetricsF(painter.font()).capHeight();
    const QTransform &toDevice = painter.deviceTransform();
    QPointF onDevice = toDevice.map(QPointF(room.left(), room.top() + (room.height() + capHeight) / 2));
    onDevice.setY(std::round(onDevice.y()));
    return toDevice.inverted().map(onDevice).y();
}

} // namespace

QRectF VLLabelDrawerExt::textRoom(qint32 width, qint32 height)
{
    const qint32 radius = height / 2;
    return {TextInset * radius + 1, 0, width - 2 * TextInset * radius - 2, double(height)};
}

void VLLabelDrawerExt::drawFittedText(QPainter &painter, const QString &string, const QRectF &room,
                                      const TextAttributes &attrDictionary)
{
    painter.setFont(fontOfAttributes(attrDictionary));
    painter.setPen(colorOfComponents(attrDictionary.foreground));
    // A line break in a name would move the rest below the label.
    QString line = string;
    line.replace(u'\n', u' ');
    painter.drawText(QPointF(room.left(), baselineIn(painter, room)),
                     VLStringUtils::trimStringToFit(line, qint32(room.width()), attrDictionary));
}

void VLLabelDrawerExt::drawString(QPainter &painter, const QString &string,
                                  const TextAttributes &attrDictionary, qint32 width, qint32 height,
                                  const Color &backColor, const Color &)
{
    const qint32 radius = height / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colorOfComponents(backColor));
    painter.drawRoundedRect(QRectF(1, 0, width - 3, height), radius, radius);
    drawFittedText(painter, string, textRoom(width, height), attrDictionary);
}

void VLLabelDrawerExt::drawLeftArrowString(QPainter &painter, const QString &string,
                                           const TextAttributes &attrDictionary, qint32 width, qint32 height,
                                           const Color &backColor, const Color &)
{
    const double half = height / 2.0;
    const QPolygonF outline({{1, half},
                             {7, double(height)},
                             {width - 3.0, double(height)},
                             {width - 9.0, half},
                             {width - 3.0, 0},
                             {7, 0}});
    drawArrow(painter, outline, string, attrDictionary, width, height, backColor);
}

void VLLabelDrawerExt::drawRightArrowString(QPainter &painter, const QString &string,
                                            const TextAttributes &attrDictionary, qint32 width, qint32 height,
                                            const Color &backColor, const Color &)
{
    const double half = height / 2.0;
    const QPolygonF outline({{7, half},
                             {1, double(height)},
                             {width - 9.0, double(height)},
                             {width - 3.0, half},
                             {width - 9.0, 0},
                             {1, 0}});
    drawArrow(painter, outline, string, attrDictionary, width, height, backColor);
}
