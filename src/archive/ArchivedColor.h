#pragma once

#include "values/Color.h"

#include <QByteArray>

#include <optional>

namespace Foundation
{

// The colour objects of keyed archives (class NSColor) contain the number of a colour space under
// "NSColorSpace", and the components as ASCII text under a name that depends on the colour space.

// The numbers of the colour spaces, with the name and content of their text.
enum class ArchivedColorSpace {
    CalibratedRGB = 1,   // "NSRGB": red, green, blue
    DeviceRGB = 2,       // the same
    CalibratedWhite = 3, // "NSWhite": 0 black to 1 white
    DeviceWhite = 4,     // the same
    DeviceCMYK = 5,      // "NSCMYK" or "NSCYMK": cyan, magenta, yellow, black
    Named = 6,           // no text; "NSColor" is the colour with that name
};

// Reads the components of any colour space but Named: numbers from 0 to 1 separated by blanks, followed by an
// opacity unless that is 1. The text ends at its first null character. There is no colour management: device
// components count as calibrated ones, and CMYK is mixed as ink on white paper. Numbers outside the range are
// limited to it. Returns nothing if the text has another form.
std::optional<Color> colorOfComponents(ArchivedColorSpace space, const QByteArray &text);

// The text that an archive has under "NSRGB" for a colour.
QByteArray componentsOfColor(const Color &color);

} // namespace Foundation
