#pragma once

#include "platform/SplitView.h"

#include <QtGlobal>

// How the two panes of a split view share its size: the limits of both panes, which pane takes a change of
// the size, and the divider positions at which a pane collapses and returns. VLHSplitViewDelegate and
// VLVSplitViewDelegate define the axis and the names of the panes. All sizes are in points. `Limit` is the
// type of the limits: with qint32, a size that is limited becomes a whole number, and other sizes keep their
// fraction.
template <class Limit>
class SplitViewRule
{
public:
    virtual ~SplitViewRule() = default;

    enum class Axis { Horizontal, Vertical };

    // Which pane takes a change of the size of the split view. With any other number, no size changes.
    enum GrowingRule : qint32 { Subview1Grows = 0, Subview0Grows = 1, BothGrow = 2 };

    bool awaked = false;
    qint32 growingRule = 0;

    // Must be called when the interface file is loaded. Sets the limits of both panes to 200 and 99999 points
    // and the growing rule to BothGrow, and lets both panes collapse. Before this call nothing is limited.
    void awakeFromNib();

    // The smallest and largest position of the divider. `proposed` is ignored. `ofSubviewAt` should be 0, the
    // only divider; any other index gives the result for pane 1. Prescribed; no caller yet.
    double constrainMinCoordinate(const Foundation::SplitView &splitView, double proposed,
                                  qint64 ofSubviewAt) const;
    double constrainMaxCoordinate(const Foundation::SplitView &splitView, double proposed,
                                  qint64 ofSubviewAt) const;
    // Distributes the present size of the split view. `oldSize` is ignored.
    virtual void resizeSubviewsWithOldSize(Foundation::SplitView &splitView,
                                           const Foundation::Size &oldSize) const;
    bool canCollapseSubview(int index) const { return m_panes[index == 0 ? 0 : 1].canCollapse; }

protected:
    struct Pane
    {
        Limit minSize{};
        Limit maxSize{};
        bool canCollapse = false;
    };

    explicit SplitViewRule(Axis axis)
        : m_axis(axis)
    {
    }
    Pane &pane(int index) { return m_panes[index]; }
    const Pane &pane(int index) const { return m_panes[index]; }
    double insideLimits(int index, double size) const;

    void collapse0(Foundation::SplitView &splitView) const;
    void expandToMin0(Foundation::SplitView &splitView) const;
    // All three store the frame that the split view has afterwards. collapse1() and expandToMin1() return the
    // former size of pane 1, expand1() returns the applied size.
    double collapse1(Foundation::SplitView &splitView, Foundation::Rect *splitViewPreviousFrame) const;
    double expandToMin1(Foundation::SplitView &splitView, Foundation::Rect *splitViewPreviousFrame) const;
    double expand1(Foundation::SplitView &splitView, double toVal,
                   Foundation::Rect *splitViewPreviousFrame) const;

private:
    double sizeOf(const Foundation::Rect &frame) const;
    void share(double size, double divider, double *size0, double *size1) const;
    double moveDivider1(Foundation::SplitView &splitView, double distanceFromEnd,
                        Foundation::Rect *splitViewPreviousFrame) const;

    const Axis m_axis;
    Pane m_panes[2];
};

extern template class SplitViewRule<double>;
extern template class SplitViewRule<qint32>;
