#pragma once

namespace Foundation
{

// Positions, sizes and frames in points. The origin of a frame is its lower left corner, and y grows upward,
// as in document files. The window layer converts them.
struct Point
{
    double x = 0;
    double y = 0;
    friend bool operator==(const Point &, const Point &) = default;
};

struct Size
{
    double width = 0;
    double height = 0;
    friend bool operator==(const Size &, const Size &) = default;
};

struct Rect
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    friend bool operator==(const Rect &, const Rect &) = default;
};

} // namespace Foundation
