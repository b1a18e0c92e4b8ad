#pragma once

namespace Foundation
{

// A colour of the calibrated RGB space. The components are doubles from 0 to 1: QColor stores 16 bits for
// each component, and reading and saving a document through it would change the stored numbers.
struct Color
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    friend bool operator==(const Color &, const Color &) = default;
};

} // namespace Foundation
