#include "window/application/WindowPlacement.h"

#include <algorithm>
#include <cmath>

using Foundation::Rect;

namespace
{

// Limits numbers from a file to a range that contains all screens and fits into an int.
int pointOf(double number)
{
    constexpr double Farthest = 1e6;
    return std::isnan(number) ? 0 : int(std::lround(std::clamp(number, -Farthest, Farthest)));
}

qint64 area(const QRect &rect)
{
    return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height();
}

// The screen that contains the largest part of the rectangle, or the first screen.
QRect screenOf(const QRect &rect, const QList<QRect> &screens)
{
    QRect best = screens.first();
    for (const QRect &screen : screens) {
        if (area(screen & rect) > area(best & rect))
            best = screen;
    }
    return best;
}

// Whether enough of the upper edge is on the screen to be dragged.
bool isTitleBarInReach(const QRect &window, const QRect &screen)
{
    constexpr int LeastInReach = 120;
    const int left = std::max(window.left(), screen.left());
    const int right = std::min(window.right(), screen.right());
    return right - left >= LeastInReach && window.top() >= screen.top() &&
           window.top() <= screen.bottom() - LeastInReach;
}

} // namespace

QRect screenRectOfFrame(const Rect &frame, const QRect &primaryScreen)
{
    const int height = pointOf(frame.height);
    return {primaryScreen.left() + pointOf(frame.x),
            primaryScreen.top() + primaryScreen.height() - pointOf(frame.y) - height, pointOf(frame.width),
            height};
}

Rect frameOfScreenRect(const QRect &rect, const QRect &primaryScreen)
{
    return {double(rect.x() - primaryScreen.left()),
            double(primaryScreen.top() + primaryScreen.height() - rect.y() - rect.height()),
            double(rect.width()), double(rect.height())};
}

QRect reachableRect(QRect wanted, QSize minimum, QSize usual, int decoration,
                    const QList<QRect> &availableScreens)
{
    if (wanted.width() <= 0 || wanted.height() <= 0)
        wanted.setSize(usual);
    wanted.setSize(wanted.size().expandedTo(minimum));
    if (availableScreens.isEmpty())
        return wanted;
    const QRect screen = screenOf(wanted, availableScreens);
    const QSize room(screen.width(), screen.height() - decoration);
    const bool fits = wanted.width() <= room.width() && wanted.height() <= room.height();
    if (fits && isTitleBarInReach(wanted, screen))
        return wanted;
    wanted.setSize(wanted.size().boundedTo(room).expandedTo(minimum));
    const auto movedInto = [](int place, int size, int start, int length) {
        return std::max(start, std::min(place, start + length - size));
    };
    wanted.moveLeft(movedInto(wanted.left(), wanted.width(), screen.left(), screen.width()));
    wanted.moveTop(movedInto(wanted.top(), wanted.height() + decoration, screen.top(), screen.height()));
    return wanted;
}
