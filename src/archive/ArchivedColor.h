#pragma once

#include "values/Color.h"

#include <QByteArray>

#include <optional>

namespace Foundation
{

// The colour objects of keyed archives (class NSColor): a number under "NSColorSpace", and the components as
// a text in ASCII under a name that depends on it.

// The numbers of the colour spaces, and what their text holds.
enum class ArchivedColorSpace {
    CalibratedRGB = 1,   // "NSRGB": red, green, blue
    DeviceRGB = 2,       // the same
    CalibratedWhite = 3, // "NSWhite": 0 black to 1 white
    DeviceWhite = 4,     // the same
    DeviceCMYK = 5,      // "NSCMYK" or "NSCYMK": cyan, magenta, yellow, black
    Named = 6,           // no text; "NSColor" is the colour that goes by the name
};

// Reads the components of all spaces but the named one: numbers from 0 to 1 between blanks, followed by
// an opacity unless that is 1. The text ends at its first null character. No colour management takes place:
// device components count as calibrated ones, and CMYK is mixed as ink on white paper. Nothing if the text is
// something else; numbers outside become the nearer end.
std::optional<Color> colorOfComponents(ArchivedColorSpace space, const QByteArray &text);

// What an archive holds under "NSRGB" for a colour.
QByteArray componentsOfColor(const Color &color);

} // namespace Foundation
