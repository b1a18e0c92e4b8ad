#pragma once

#include "values/Color.h"

#include <QString>

namespace Foundation
{

// The font and colour with which a line of text is drawn and measured.
struct TextAttributes
{
    QString fontFamily;   // null for the default font of the desktop
    double fontSize = 13; // in points
    Color foreground;
    friend bool operator==(const TextAttributes &, const TextAttributes &) = default;
};

} // namespace Foundation
