#pragma once

#include "platform/Services.h"

#include <QColor>
#include <QFont>

// Converts text attributes and colours of the logic into those of the toolkit.

// The font for these attributes. A point is a 96th of an inch and is scaled by the text scale of the desktop.
// A family that is not installed is replaced by the default font; the attributes keep its name.
QFont fontOfAttributes(const Foundation::TextAttributes &attributes);

QColor colorOfComponents(const Foundation::Color &color);
Foundation::Color componentsOfColor(const QColor &color);

// Measures text with fontOfAttributes().
class DesktopTextMeasurer : public Foundation::TextMeasurer
{
public:
    double widthOfText(const QString &text, const Foundation::TextAttributes &attributes) const override;
};
