#pragma once

#include "platform/Services.h"

#include <QColor>
#include <QFont>

// What the logic says of text and colours, in the desktop's own terms.

// The font of these attributes. A point is as large as one of an unscaled screen, and grows with the
// desktop's scale of text. A family that this desktop lacks is replaced by the desktop's own; the attributes
// keep its name.
QFont fontOfAttributes(const Foundation::TextAttributes &attributes);

QColor colorOfComponents(const Foundation::Color &color);
Foundation::Color componentsOfColor(const QColor &color);

// Measures with the fonts that draw.
class DesktopTextMeasurer : public Foundation::TextMeasurer
{
public:
    double widthOfText(const QString &text, const Foundation::TextAttributes &attributes) const override;
};
