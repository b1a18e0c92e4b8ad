#pragma once

#include "values/Geometry.h"

namespace Foundation
{

// Two panes with a divider between them, as the rules for their sizes see them. If its rule allows it, a pane
// collapses when the divider is set to less than half of the minimum of that pane, and returns with its
// minimum size when the divider is set to more. Positions are measured along the axis from the outer edge of
// pane 0.
class SplitView
{
public:
    virtual ~SplitView() = default;

    virtual Rect frame() const = 0;
    // Pane 0 is at the top or left, pane 1 at the bottom or right.
    virtual Rect frameOfSubview(int index) const = 0;
    virtual void setFrameOfSubview(int index, const Rect &frame) = 0;
    virtual bool isSubviewCollapsed(int index) const = 0;
    virtual double dividerThickness() const = 0;
    virtual void setPositionOfDivider(double position, int dividerIndex) = 0;
    // Adjusts the panes so that they fill the view.
    virtual void adjustSubviews() = 0;
};

} // namespace Foundation
