#pragma once

#include "helpers/views/SplitViewRule.h"

// The rule of two panes side by side. Sizes are widths. See SplitViewRule. Prescribed; most operations have
// no caller yet.
class VLVSplitViewDelegate : public SplitViewRule<qint32>
{
public:
    VLVSplitViewDelegate()
        : SplitViewRule(Axis::Horizontal)
    {
    }

    qint32 minHSizeLeft() const { return pane(0).minSize; }
    void setMinHSizeLeft(qint32 size) { pane(0).minSize = size; }
    qint32 maxHSizeLeft() const { return pane(0).maxSize; }
    void setMaxHSizeLeft(qint32 size) { pane(0).maxSize = size; }
    bool canCollapseLeft() const { return pane(0).canCollapse; }
    void setCanCollapseLeft(bool can) { pane(0).canCollapse = can; }
    qint32 minHSizeRight() const { return pane(1).minSize; }
    void setMinHSizeRight(qint32 size) { pane(1).minSize = size; }
    qint32 maxHSizeRight() const { return pane(1).maxSize; }
    void setMaxHSizeRight(qint32 size) { pane(1).maxSize = size; }
    bool canCollapseRight() const { return pane(1).canCollapse; }
    void setCanCollapseRight(bool can) { pane(1).canCollapse = can; }
    qint32 leftFrameInsideLimits(qint32 size) const { return qint32(insideLimits(0, size)); }
    qint32 rightFrameInsideLimits(qint32 size) const { return qint32(insideLimits(1, size)); }

    // Unlike VLHSplitViewDelegate, also calls adjustSubviews() of the view.
    void resizeSubviewsWithOldSize(Foundation::SplitView &splitView,
                                   const Foundation::Size &oldSize) const override;

    // Always return true.
    bool collapseLeftView(Foundation::SplitView &splitView) const;
    bool expandToMinLeftView(Foundation::SplitView &splitView) const;
    bool toggleCollapseLeftView(Foundation::SplitView &splitView) const;

    // Return the size of the right pane before the change, and store the frame of the split view after it.
    double collapseRightView(Foundation::SplitView &splitView,
                             Foundation::Rect *splitViewPreviousFrame) const;
    double expandToMinRightView(Foundation::SplitView &splitView,
                                Foundation::Rect *splitViewPreviousFrame) const;
    bool expandToMinRightView(Foundation::SplitView &splitView) const; // Returns true.
    // Returns true.
    bool toggleCollapseExpandRightView(Foundation::SplitView &splitView) const;

    // Restore the size and frame that collapsing returned. Return the applied size; the toggle returns the
    // result of collapsing if it collapses.
    double expandRightView(Foundation::SplitView &splitView, double toVal,
                           Foundation::Rect *splitViewPreviousFrame) const;
    double toggleCollapseExpandRightView(Foundation::SplitView &splitView, double toVal,
                                         Foundation::Rect *splitViewPreviousFrame) const;
};
