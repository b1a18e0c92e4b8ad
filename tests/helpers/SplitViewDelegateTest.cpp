#include "helpers/views/VLHSplitViewDelegate.h"
#include "helpers/views/VLVSplitViewDelegate.h"

#include <gtest/gtest.h>

using Foundation::Rect;

namespace
{

constexpr double Divider = 10;

// Panes side by side or stacked; sizes along the axis in one place.
class ScriptedSplitView : public Foundation::SplitView
{
public:
    ScriptedSplitView(bool isHorizontal, double size, double size0, double size1)
        : horizontal(isHorizontal)
        , whole(rect(0, size))
        , panes{rect(0, size0), rect(size0 + Divider, size1)}
    {
    }
    Rect frame() const override { return whole; }
    Rect frameOfSubview(int index) const override { return panes[index]; }
    void setFrameOfSubview(int index, const Rect &frame) override { panes[index] = frame; }
    bool isSubviewCollapsed(int index) const override { return collapsed[index]; }
    double dividerThickness() const override { return Divider; }
    void setPositionOfDivider(double position, int) override { divider = position; }
    void adjustSubviews() override { ++adjusted; }

    Rect rect(double origin, double size) const
    {
        return horizontal ? Rect{origin, 0, size, 70} : Rect{0, origin, 70, size};
    }

    bool horizontal;
    Rect whole;
    Rect panes[2];
    bool collapsed[2] = {false, false};
    double divider = 0;
    int adjusted = 0;
};

TEST(SplitViewDelegate, SharesTheSizeByItsRule)
{
    const struct
    {
        const char *rule;
        qint32 growingRule;
        int collapsedPane;
        double size, before0, before1, after0, after1, origin1;
    } cases[] = {
        {"half of the growth each", 2, -1, 910, 300, 500, 350, 550, 360},
        {"what a full pane cannot take goes to the other", 2, -1, 1610, 600, 700, 800, 800, 810},
        {"too small for both: pane 1 keeps its minimum", 2, -1, 310, 300, 300, 100, 200, 110},
        {"pane 0 keeps its size", 0, -1, 910, 300, 500, 300, 600, 310},
        {"unless pane 1 would be too small", 0, -1, 410, 300, 500, 200, 200, 210},
        {"pane 1 keeps its size", 1, -1, 910, 300, 500, 400, 500, 410},
        {"a collapsed pane 1 leaves all to the other", 2, 1, 910, 300, 500, 900, 500, 310},
        {"a collapsed pane 0 too, wherever it was", 2, 0, 910, 300, 500, 300, 900, 310},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        ScriptedSplitView view(true, c.size, c.before0, c.before1);
        if (c.collapsedPane >= 0)
            view.collapsed[c.collapsedPane] = true;
        VLVSplitViewDelegate rule;
        rule.awakeFromNib();
        rule.setMaxHSizeRight(800);
        rule.growingRule = c.growingRule;
        rule.resizeSubviewsWithOldSize(view, {});
        EXPECT_EQ(view.panes[0], view.rect(0, c.after0));
        EXPECT_EQ(view.panes[1], view.rect(c.origin1, c.after1));
        EXPECT_EQ(view.adjusted, 1);
    }
}

TEST(SplitViewDelegate, ClampsOnlyAwakeAndPrefersTheMinimum)
{
    VLHSplitViewDelegate rule;
    EXPECT_EQ(rule.topFrameInsideLimits(-3), -3);
    rule.awakeFromNib();
    EXPECT_EQ(rule.topFrameInsideLimits(199.5), 200);
    EXPECT_EQ(rule.bottomFrameInsideLimits(100000), 99999);
    rule.setMinVSizeTop(300.5);
    rule.setMaxVSizeTop(250);
    EXPECT_EQ(rule.topFrameInsideLimits(275), 300.5);
    EXPECT_EQ(rule.growingRule, 2);
    EXPECT_TRUE(rule.canCollapseSubview(0) && rule.canCollapseTop() && rule.canCollapseBottom());
    rule.setCanCollapseBottom(false);
    EXPECT_FALSE(rule.canCollapseSubview(1));
}

TEST(SplitViewDelegate, CollapsesAndRestoresByThePlaceOfTheDivider)
{
    VLHSplitViewDelegate rule;
    rule.awakeFromNib();
    rule.setMinVSizeBottom(300);
    ScriptedSplitView view(false, 1000, 600, 390);
    Rect saved;
    EXPECT_TRUE(rule.toggleCollapseTopView(view));
    EXPECT_EQ(view.divider, 99);
    view.collapsed[0] = true;
    EXPECT_TRUE(rule.toggleCollapseTopView(view));
    EXPECT_EQ(view.divider, 101);
    view.collapsed[0] = false;

    EXPECT_EQ(rule.toggleCollapseExpandBottomView(view, 0, &saved), 390);
    EXPECT_EQ(view.divider, 1000 - 149);
    EXPECT_EQ(saved, view.whole);
    EXPECT_EQ(rule.expandToMinBottomView(view, &saved), 390);
    EXPECT_EQ(view.divider, 1000 - 151);
    EXPECT_EQ(rule.toggleCollapseExpandBottomView(view), 390);

    view.collapsed[1] = true;
    view.whole = view.rect(0, 1100); // The window grew meanwhile: half of that is the pane's.
    EXPECT_EQ(rule.toggleCollapseExpandBottomView(view, 390, &saved), 440);
    EXPECT_EQ(view.divider, 1100 - 440);
    EXPECT_EQ(saved, view.whole);
    rule.growingRule = 0;
    EXPECT_EQ(rule.expandBottomView(view, 50, &saved), 300);
    EXPECT_EQ(rule.expandBottomView(view, 1000, &saved), 1100 - 200 - Divider); // Pane 0 keeps its minimum.
}

} // namespace
