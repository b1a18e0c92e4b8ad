#include "helpers/views/SplitViewRule.h"

#include <algorithm>

using Foundation::Rect;
using Foundation::SplitView;

template <class Limit>
void SplitViewRule<Limit>::awakeFromNib()
{
    constexpr Limit UsualMinimum = 200;
    constexpr Limit UsualMaximum = 99999;
    for (Pane &pane : m_panes)
        pane = {UsualMinimum, UsualMaximum, true};
    growingRule = BothGrow;
    awaked = true;
}

template <class Limit>
double SplitViewRule<Limit>::insideLimits(int index, double size) const
{
    if (!awaked)
        return size;
    const Pane &pane = m_panes[index];
    // The minimum is checked first, so that it takes precedence if it is above the maximum.
    if (double(pane.minSize) > size)
        return double(pane.minSize);
    return std::min(size, double(pane.maxSize));
}

template <class Limit>
double SplitViewRule<Limit>::sizeOf(const Rect &frame) const
{
    return m_axis == Axis::Horizontal ? frame.width : frame.height;
}

template <class Limit>
double SplitViewRule<Limit>::constrainMinCoordinate(const SplitView &, double, qint64 ofSubviewAt) const
{
    return double(m_panes[ofSubviewAt == 0 ? 0 : 1].minSize);
}

template <class Limit>
double SplitViewRule<Limit>::constrainMaxCoordinate(const SplitView &splitView, double,
                                                    qint64 ofSubviewAt) const
{
    const Pane &pane = m_panes[ofSubviewAt == 0 ? 0 : 1];
    const Pane &other = m_panes[ofSubviewAt == 0 ? 1 : 0];
    const double room = sizeOf(splitView.frame()) - double(other.minSize) - splitView.dividerThickness();
    return std::min(room, double(pane.maxSize));
}

template <class Limit>
void SplitViewRule<Limit>::share(double size, double divider, double *size0, double *size1) const
{
    switch (growingRule) {
    case Subview1Grows:
        *size1 = insideLimits(1, size - *size0 - divider);
        *size0 = size - *size1 - divider;
        break;
    case Subview0Grows:
        *size0 = insideLimits(0, size - *size1 - divider);
        *size1 = size - *size0 - divider;
        break;
    case BothGrow:
        *size0 = insideLimits(0, (size - *size1 - divider + *size0) / 2);
        // This pane is limited last, so that it keeps its minimum in a view that is too small for both.
        *size1 = insideLimits(1, size - *size0 - divider);
        *size0 = size - *size1 - divider;
        break;
    default:
        break;
    }
}

template <class Limit>
void SplitViewRule<Limit>::resizeSubviewsWithOldSize(SplitView &splitView, const Foundation::Size &) const
{
    const bool isHorizontal = m_axis == Axis::Horizontal;
    const Rect whole = splitView.frame();
    Rect frame0 = splitView.frameOfSubview(0);
    Rect frame1 = splitView.frameOfSubview(1);
    (isHorizontal ? frame0.height : frame0.width) = isHorizontal ? whole.height : whole.width;
    (isHorizontal ? frame1.height : frame1.width) = isHorizontal ? whole.height : whole.width;
    double &size0 = isHorizontal ? frame0.width : frame0.height;
    double &size1 = isHorizontal ? frame1.width : frame1.height;
    const double size = sizeOf(whole);
    const double divider = splitView.dividerThickness();
    if (splitView.isSubviewCollapsed(1)) {
        size0 = size - divider;
    } else if (splitView.isSubviewCollapsed(0)) {
        size1 = size - divider;
    } else {
        share(size, divider, &size0, &size1);
        if (growingRule >= Subview1Grows && growingRule <= BothGrow)
            (isHorizontal ? frame1.x : frame1.y) = size0 + divider;
    }
    splitView.setFrameOfSubview(0, frame0);
    splitView.setFrameOfSubview(1, frame1);
}

// A pane collapses or returns when the divider passes half of its minimum.
constexpr double HalfOfMinimum = 0.5;
constexpr double BesideHalf = 1.0;

template <class Limit>
void SplitViewRule<Limit>::collapse0(SplitView &splitView) const
{
    splitView.setPositionOfDivider(double(m_panes[0].minSize) * HalfOfMinimum - BesideHalf, 0);
}

template <class Limit>
void SplitViewRule<Limit>::expandToMin0(SplitView &splitView) const
{
    splitView.setPositionOfDivider(double(m_panes[0].minSize) * HalfOfMinimum + BesideHalf, 0);
}

template <class Limit>
double SplitViewRule<Limit>::moveDivider1(SplitView &splitView, double distanceFromEnd,
                                          Rect *splitViewPreviousFrame) const
{
    const double sizeBefore = sizeOf(splitView.frameOfSubview(1));
    splitView.setPositionOfDivider(sizeOf(splitView.frame()) - distanceFromEnd, 0);
    *splitViewPreviousFrame = splitView.frame();
    return sizeBefore;
}

template <class Limit>
double SplitViewRule<Limit>::collapse1(SplitView &splitView, Rect *splitViewPreviousFrame) const
{
    return moveDivider1(splitView, double(m_panes[1].minSize) * HalfOfMinimum - BesideHalf,
                        splitViewPreviousFrame);
}

template <class Limit>
double SplitViewRule<Limit>::expandToMin1(SplitView &splitView, Rect *splitViewPreviousFrame) const
{
    return moveDivider1(splitView, double(m_panes[1].minSize) * HalfOfMinimum + BesideHalf,
                        splitViewPreviousFrame);
}

template <class Limit>
double SplitViewRule<Limit>::expand1(SplitView &splitView, double toVal, Rect *splitViewPreviousFrame) const
{
    const double divider = splitView.dividerThickness();
    const double size = sizeOf(splitView.frame());
    if (growingRule == BothGrow) // The part of the growth that the pane would have taken.
        toVal += ((size - divider) - (sizeOf(*splitViewPreviousFrame) - divider)) / 2;
    toVal = insideLimits(1, toVal);
    const auto least0 = double(m_panes[0].minSize);
    if (size - toVal - divider < least0)
        toVal = size - least0 - divider;
    // Required: ignores the divider, as saved sizes always have.
    moveDivider1(splitView, toVal, splitViewPreviousFrame);
    return toVal;
}

template class SplitViewRule<double>;
template class SplitViewRule<qint32>;
