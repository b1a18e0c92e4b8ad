#pragma once

#include "platform/SplitView.h"

#include <QtGlobal>

// How the two panes of a split view share its size: the limits of both, who takes a change, and the places of
// the divider at which a pane collapses and comes back. VLHSplitViewDelegate and VLVSplitViewDelegate give it
// their axis and the names of their panes. `Limit` is the type in which the limits are kept; a size that is
// clamped to one of them is a whole number then, others stay as they are.
template <class Limit>
class SplitViewRule
{
public:
    virtual ~SplitViewRule() = default;

    enum class Axis { Horizontal, Vertical };

    // Which pane takes a change of the split view's size. Any other number: no size changes.
    enum GrowingRule : qint32 { Subview1Grows = 0, Subview0Grows = 1, BothGrow = 2 };

    bool awaked = false;
    qint32 growingRule = 0;

    // The interface file is loaded: sets the usual limits of both panes, 200 and 99999, the rule that both
    // grow, and lets both collapse. Before this nothing is clamped.
    void awakeFromNib();

    // The smallest and largest place of the divider; the proposal is not asked. Index 0 is the only divider
    // there is; any other gets the answer for pane 1.
    double constrainMinCoordinate(const Foundation::SplitView &splitView, double proposed,
                                  qint64 ofSubviewAt) const;
    double constrainMaxCoordinate(const Foundation::SplitView &splitView, double proposed,
                                  qint64 ofSubviewAt) const;
    // Shares the present size; the former one is not asked.
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
    // All return the size of pane 1 before or, where it is restored to a size, the size applied, and store
    // the frame of the split view as it stands afterwards.
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
