#include "window/application/WindowPlacement.h"

#include <gtest/gtest.h>

using Foundation::Rect;

namespace
{
const QRect primary(0, 0, 1600, 1000);
} // namespace

TEST(WindowPlacement, CountsFromTheLowerLeftCorner)
{
    const QRect onScreen(100, 50, 900, 600);
    const Rect frame{100, 350, 900, 600};
    EXPECT_EQ(frameOfScreenRect(onScreen, primary), frame);
    EXPECT_EQ(screenRectOfFrame(frame, primary), onScreen);
    // A primary screen that is not at the origin.
    EXPECT_EQ(frameOfScreenRect(onScreen.translated(1920, 80), primary.translated(1920, 80)), frame);
}

TEST(WindowPlacement, WindowsStayInReach)
{
    const QRect left(0, 30, 1600, 970);
    const QRect right(1600, 0, 1280, 1024);
    const QSize minimum(560, 340);
    const QSize usual(980, 640);
    constexpr int TitleBar = 28;
    const std::tuple<const char *, QRect, QRect> cases[] = {
        {"a good one is left alone", {100, 50, 900, 600}, {100, 50, 900, 600}},
        {"also on another screen", {1700, 10, 900, 600}, {1700, 10, 900, 600}},
        {"partly off, but the title bar can be reached", {1400, 700, 900, 600}, {1400, 700, 900, 600}},
        {"0 by 0 of a file made without a window", {0, 1000, 0, 0}, {0, 332, 980, 640}},
        {"too small", {100, 50, 10, 10}, {100, 50, 560, 340}},
        {"too large", {100, 50, 9000, 9000}, {0, 30, 1600, 942}},
        {"far to the right", {5000, 50, 900, 600}, {700, 50, 900, 600}},
        {"far to the left", {-5000, 50, 900, 600}, {0, 50, 900, 600}},
        {"above: the title bar under the panel", {100, 10, 900, 600}, {100, 30, 900, 600}},
        {"below", {100, 990, 900, 600}, {100, 372, 900, 600}},
    };
    for (const auto &[rule, wanted, shown] : cases)
        EXPECT_EQ(reachableRect(wanted, minimum, usual, TitleBar, {left, right}), shown) << rule;
    EXPECT_EQ(reachableRect({100, 50, 1500, 900}, minimum, usual, TitleBar, {right}).size(), QSize(1280, 900))
        << "the one screen that the window can be on";
}
