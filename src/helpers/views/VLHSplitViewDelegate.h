#pragma once

#include "helpers/views/SplitViewRule.h"

// The rule of two panes on top of each other. Sizes are heights. See SplitViewRule. Prescribed; no caller
// yet.
class VLHSplitViewDelegate : public SplitViewRule<double>
{
public:
    VLHSplitViewDelegate()
        : SplitViewRule(Axis::Vertical)
    {
    }

    double minVSizeTop() const { return pane(0).minSize; }
    void setMinVSizeTop(double size) { pane(0).minSize = size; }
    double maxVSizeTop() const { return pane(0).maxSize; }
    void setMaxVSizeTop(double size) { pane(0).maxSize = size; }
    bool canCollapseTop() const { return pane(0).canCollapse; }
    void setCanCollapseTop(bool can) { pane(0).canCollapse = can; }
    double minVSizeBottom() const { return pane(1).minSize; }
    void setMinVSizeBottom(double size) { pane(1).minSize = size; }
    double maxVSizeBottom() const { return pane(1).maxSize; }
    void setMaxVSizeBottom(double size) { pane(1).maxSize = size; }
    bool canCollapseBottom() const { return pane(1).canCollapse; }
    void setCanCollapseBottom(bool can) { pane(1).canCollapse = can; }
    double topFrameInsideLimits(double size) const { return insideLimits(0, size); }
    double bottomFrameInsideLimits(double size) const { return insideLimits(1, size); }

    // Always return true.
    bool collapseTopView(Foundation::SplitView &splitView) const;
    bool expandToMinTopView(Foundation::SplitView &splitView) const;
    bool toggleCollapseTopView(Foundation::SplitView &splitView) const;

    // Return the size of the bottom pane before the change, and store the frame of the split view after it.
    double collapseBottomView(Foundation::SplitView &splitView,
                              Foundation::Rect *splitViewPreviousFrame) const;
    double expandToMinBottomView(Foundation::SplitView &splitView,
                                 Foundation::Rect *splitViewPreviousFrame) const;
    double toggleCollapseExpandBottomView(Foundation::SplitView &splitView) const;

    // Restore the size and frame that collapsing returned. Return the applied size; the toggle returns the
    // result of collapsing if it collapses.
    double expandBottomView(Foundation::SplitView &splitView, double toVal,
                            Foundation::Rect *splitViewPreviousFrame) const;
    double toggleCollapseExpandBottomView(Foundation::SplitView &splitView, double toVal,
                                          Foundation::Rect *splitViewPreviousFrame) const;
};
