#include "window/controls/RuledSplitView.h"

#include "window/controls/SynchroScrollArea.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

namespace
{

class RuledSplitViewTest : public testing::Test
{
protected:
    RuledSplitViewTest()
    {
        view.addWidget(new QWidget);
        view.addWidget(new QWidget);
        view.setHandleWidth(1);
        VLVSplitViewDelegate &rule = view.mySplitViewDelegate();
        rule.setMinHSizeLeft(210);
        rule.setMaxHSizeLeft(660);
        rule.setMinHSizeRight(450);
        rule.setMaxHSizeRight(9999);
        rule.setCanCollapseLeft(false);
        rule.setCanCollapseRight(false);
        view.resize(801, 300);
        view.show();
        view.setSizes({300, 500});
    }
    QList<int> widthsAfter(int width)
    {
        view.resize(width, 300);
        QApplication::processEvents();
        return view.sizes();
    }

    RuledSplitView view;
};

} // namespace

TEST_F(RuledSplitViewTest, BothPanesTakeHalfOfEveryChangeWithinTheirLimits)
{
    EXPECT_EQ(view.sizes(), QList<int>({300, 500}));
    EXPECT_EQ(widthsAfter(661), QList<int>({210, 450})) << "the right pane was at its minimum";
    // In steps of a point, as by hand, it comes to the same.
    view.resize(801, 300);
    view.setSizes({300, 500});
    for (int width = 802; width <= 901; ++width)
        view.resize(width, 300);
    EXPECT_EQ(view.sizes(), QList<int>({350, 550}));
}

TEST_F(RuledSplitViewTest, TheDividerStopsAtTheLimits)
{
    view.setPositionOfDivider(20, 0);
    EXPECT_EQ(view.sizes(), QList<int>({210, 590}));
    view.setPositionOfDivider(790, 0);
    EXPECT_EQ(view.sizes(), QList<int>({350, 450}));
    EXPECT_FALSE(view.isSubviewCollapsed(0));
}

TEST_F(RuledSplitViewTest, APaneThatMayCollapseDoesSoBesideHalfOfItsMinimum)
{
    VLVSplitViewDelegate &rule = view.mySplitViewDelegate();
    rule.setCanCollapseLeft(true);
    view.resize(802, 300); // The rule is looked at.
    rule.collapseLeftView(view);
    EXPECT_TRUE(view.isSubviewCollapsed(0));
    EXPECT_EQ(widthsAfter(901), QList<int>({0, 900}));
    rule.toggleCollapseLeftView(view);
    EXPECT_FALSE(view.isSubviewCollapsed(0));
    EXPECT_EQ(view.sizes().at(0), 210);
}

TEST(SynchroScrollAreaTest, FollowsUpAndDownAsFarAsItGoes)
{
    SynchroScrollArea leader;
    SynchroScrollArea follower;
    for (SynchroScrollArea *area : {&leader, &follower}) {
        area->setWidget(new QWidget);
        area->widget()->setFixedSize(400, area == &leader ? 1000 : 600);
        area->resize(200, 200);
        area->show();
    }
    follower.follow(&leader);
    leader.follow(&follower);
    leader.verticalScrollBar()->setValue(120);
    leader.horizontalScrollBar()->setValue(40);
    EXPECT_EQ(follower.verticalScrollBar()->value(), 120);
    EXPECT_EQ(follower.horizontalScrollBar()->value(), 0);
    follower.verticalScrollBar()->setValue(30);
    EXPECT_EQ(leader.verticalScrollBar()->value(), 30);
    leader.verticalScrollBar()->setValue(800);
    EXPECT_GE(leader.verticalScrollBar()->value(), 780) << "a shorter follower does not pull it back";
    follower.hide();
    follower.widget()->setFixedHeight(300);
    QCoreApplication::processEvents();
    EXPECT_GE(leader.verticalScrollBar()->value(), 780) << "what is out of sight tells nothing";
    follower.widget()->setFixedHeight(1000);
    follower.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(follower.verticalScrollBar()->value(), leader.verticalScrollBar()->value());
    follower.follow(nullptr);
    leader.verticalScrollBar()->setValue(0);
    EXPECT_GE(follower.verticalScrollBar()->value(), 780);
}

TEST(SynchroScrollAreaTest, GoesWithTheFieldThatHasTheFocus)
{
    SynchroScrollArea area;
    area.setWidget(new QLineEdit);
    area.show();
    area.activateWindow();
    area.widget()->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&area] { return area.widget()->hasFocus(); }));
}
