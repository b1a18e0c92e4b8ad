#include "helpers/views/VLVSplitViewDelegate.h"

using Foundation::Rect;
using Foundation::SplitView;

void VLVSplitViewDelegate::resizeSubviewsWithOldSize(SplitView &splitView,
                                                     const Foundation::Size &oldSize) const
{
    SplitViewRule::resizeSubviewsWithOldSize(splitView, oldSize);
    splitView.adjustSubviews();
}

bool VLVSplitViewDelegate::collapseLeftView(SplitView &splitView) const
{
    collapse0(splitView);
    return true;
}

bool VLVSplitViewDelegate::expandToMinLeftView(SplitView &splitView) const
{
    expandToMin0(splitView);
    return true;
}

bool VLVSplitViewDelegate::toggleCollapseLeftView(SplitView &splitView) const
{
    return splitView.isSubviewCollapsed(0) ? expandToMinLeftView(splitView) : collapseLeftView(splitView);
}

double VLVSplitViewDelegate::collapseRightView(SplitView &splitView, Rect *splitViewPreviousFrame) const
{
    return collapse1(splitView, splitViewPreviousFrame);
}

double VLVSplitViewDelegate::expandToMinRightView(SplitView &splitView, Rect *splitViewPreviousFrame) const
{
    return expandToMin1(splitView, splitViewPreviousFrame);
}

bool VLVSplitViewDelegate::expandToMinRightView(SplitView &splitView) const
{
    Rect scratch;
    expandToMin1(splitView, &scratch);
    return true;
}

bool VLVSplitViewDelegate::toggleCollapseExpandRightView(SplitView &splitView) const
{
    Rect scratch;
    if (splitView.isSubviewCollapsed(1))
        expandToMin1(splitView, &scratch);
    else
        collapse1(splitView, &scratch);
    return true;
}

double VLVSplitViewDelegate::expandRightView(SplitView &splitView, double toVal,
                                             Rect *splitViewPreviousFrame) const
{
    return expand1(splitView, toVal, splitViewPreviousFrame);
}

double VLVSplitViewDelegate::toggleCollapseExpandRightView(SplitView &splitView, double toVal,
                                                           Rect *splitViewPreviousFrame) const
{
    return splitView.isSubviewCollapsed(1) ? expand1(splitView, toVal, splitViewPreviousFrame)
                                           : collapse1(splitView, splitViewPreviousFrame);
}
