#pragma once

#include "values/Geometry.h"

namespace Foundation
{

// Two panes with a divider between them, as rules for their sizes see them. A pane collapses when the divider
// is set to less than half of its minimum, if its rule allows that, and comes back at its minimum when the
// divider is set to more. Places along the axis count from the edge of pane 0.
class SplitView
{
public:
    virtual ~SplitView() = default;

    virtual Rect frame() const = 0;
    // Panes 0 and 1: top and bottom, or left and right.
    virtual Rect frameOfSubview(int index) const = 0;
    virtual void setFrameOfSubview(int index, const Rect &frame) = 0;
    virtual bool isSubviewCollapsed(int index) const = 0;
    virtual double dividerThickness() const = 0;
    virtual void setPositionOfDivider(double position, int dividerIndex) = 0;
    // Makes the panes fill the view.
    virtual void adjustSubviews() = 0;
};

} // namespace Foundation
