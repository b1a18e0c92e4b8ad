#include "helpers/views/SynchroScrollView.h"

#include <gtest/gtest.h>

using Foundation::Point;
using Foundation::Rect;

namespace
{

class ScriptedScrollView : public Foundation::ScrollView
{
public:
    explicit ScriptedScrollView(bool isFlipped = true)
        : flipped(isFlipped)
    {
    }
    Rect documentFrame() const override { return {0, 5, 100, 900}; }
    Rect documentVisibleRect() const override { return bounds; }
    Rect contentBounds() const override { return bounds; }
    bool isFlipped() const override { return flipped; }
    void scrollToPoint(const Point &point) override
    {
        bounds.x = point.x;
        bounds.y = point.y;
        ++scrolls;
    }
    void reflectScrolledClipView() override {}
    void setPostsBoundsChangedNotifications(bool posts) override { posting = posts; }
    void addBoundsObserver(const void *, std::function<void()> changed) override { observed = changed; }
    void removeBoundsObserver(const void *) override { observed = nullptr; }
    void userScrollsTo(double x, double y)
    {
        scrollToPoint({x, y});
        observed();
    }

    const bool flipped;
    Rect bounds{30, 0, 100, 200};
    bool posting = false;
    int scrolls = 0;
    std::function<void()> observed;
};

TEST(SynchroScrollView, FollowsTheVerticalPositionOfOneOther)
{
    ScriptedScrollView own, other, upward(false);
    {
        SynchroScrollView rule(own);
        rule.setSynchronizedScrollView(&other);
        EXPECT_TRUE(other.posting);
        other.userScrollsTo(7, 40);
        EXPECT_EQ(own.bounds, (Rect{30, 40, 100, 200}));
        other.userScrollsTo(30, 40); // Where it is already.
        EXPECT_EQ(own.scrolls, 1);
        rule.setSynchronizedScrollView(&upward);
        EXPECT_FALSE(other.observed);
        upward.userScrollsTo(0, 40);
        EXPECT_EQ(own.bounds.y, -40) << "the other counts from below";
    }
    EXPECT_FALSE(upward.observed);
    scrollToBottom(own);
    EXPECT_EQ(own.bounds, (Rect{0, 5 + 900 - 200, 100, 200}));
    scrollToBottom(upward);
    EXPECT_EQ(upward.bounds.y, 0);
}

} // namespace
