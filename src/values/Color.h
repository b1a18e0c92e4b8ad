#pragma once

namespace Foundation
{

// A colour of the calibrated RGB space, components from 0 to 1 in double precision: a desktop's own colour
// type keeps 16 bits a component and would change what a document stores.
struct Color
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    friend bool operator==(const Color &, const Color &) = default;
};

} // namespace Foundation
