#include "window/list/VLLabelDrawer.h"

#include "platform/Services.h"
#include "window/desktop/DesktopText.h"
#include "window/list/VLLabelDrawerExt.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

using Foundation::Color;
using Foundation::TextAttributes;

void VLLabelDrawer::drawString(QPainter &painter, const QString &string, const TextAttributes &attrDictionary,
                               qint32 width, qint32 height, const Color &backColor, const Color &)
{
    const qint32 radius = height / 2;
    // Painted as one shape. Otherwise a translucent colour would be darker where bar and discs overlap.
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    outline.addRect(radius + 1, 0, width - height, height);
    outline.addEllipse(1, 0, height, height);
    outline.addEllipse(width - height - 2, 0, height, height);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline, colorOfComponents(backColor));
    VLLabelDrawerExt::drawFittedText(painter, string, VLLabelDrawerExt::textRoom(width, height),
                                     attrDictionary);
}

qint32 VLLabelDrawer::widthForString(const QString &string, const TextAttributes &attrDictionary,
                                     qint32 height)
{
    const double text = Foundation::Services::shared().textMeasurer().widthOfText(string, attrDictionary);
    return qint32(std::ceil(text)) + qint32(std::ceil(-VLLabelDrawerExt::textRoom(0, height).width()));
}
