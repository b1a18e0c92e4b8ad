#include "helpers/views/VLHSplitViewDelegate.h"

using Foundation::Rect;
using Foundation::SplitView;

bool VLHSplitViewDelegate::collapseTopView(SplitView &splitView) const
{
    collapse0(splitView);
    return true;
}

bool VLHSplitViewDelegate::expandToMinTopView(SplitView &splitView) const
{
    expandToMin0(splitView);
    return true;
}

bool VLHSplitViewDelegate::toggleCollapseTopView(SplitView &splitView) const
{
    return splitView.isSubviewCollapsed(0) ? expandToMinTopView(splitView) : collapseTopView(splitView);
}

double VLHSplitViewDelegate::collapseBottomView(SplitView &splitView, Rect *splitViewPreviousFrame) const
{
    return collapse1(splitView, splitViewPreviousFrame);
}

double VLHSplitViewDelegate::expandToMinBottomView(SplitView &splitView, Rect *splitViewPreviousFrame) const
{
    return expandToMin1(splitView, splitViewPreviousFrame);
}

double VLHSplitViewDelegate::toggleCollapseExpandBottomView(SplitView &splitView) const
{
    Rect scratch;
    return splitView.isSubviewCollapsed(1) ? expandToMin1(splitView, &scratch)
                                           : collapse1(splitView, &scratch);
}

double VLHSplitViewDelegate::expandBottomView(SplitView &splitView, double toVal,
                                              Rect *splitViewPreviousFrame) const
{
    return expand1(splitView, toVal, splitViewPreviousFrame);
}

double VLHSplitViewDelegate::toggleCollapseExpandBottomView(SplitView &splitView, double toVal,
                                                            Rect *splitViewPreviousFrame) const
{
    return splitView.isSubviewCollapsed(1) ? expand1(splitView, toVal, splitViewPreviousFrame)
                                           : collapse1(splitView, splitViewPreviousFrame);
}
