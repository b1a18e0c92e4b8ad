#pragma once

#include "values/Geometry.h"

#include <functional>

namespace Foundation
{

// A scroll view as the logic sees it: the document view is the larger view that is scrolled, and the content
// view is the part of the screen that shows a section of it.
class ScrollView
{
public:
    virtual ~ScrollView() = default;

    virtual Rect documentFrame() const = 0;
    virtual Rect documentVisibleRect() const = 0;
    virtual Rect contentBounds() const = 0;
    // Whether y grows downward in the document view.
    virtual bool isFlipped() const = 0;
    // Scrolls so that `point` of the document view is at the origin of the content view.
    virtual void scrollToPoint(const Point &point) = 0;
    // Updates the scroll bars.
    virtual void reflectScrolledClipView() = 0;

    virtual void setPostsBoundsChangedNotifications(bool posts) = 0;
    // Calls `changed` immediately and on the same thread whenever the bounds of the content view change and
    // notifications are switched on. The address identifies the observer, which has at most one entry.
    virtual void addBoundsObserver(const void *observer, std::function<void()> changed) = 0;
    virtual void removeBoundsObserver(const void *observer) = 0;
};

// Scrolls to the end of the document view, at its left edge.
inline void scrollToBottom(ScrollView &view)
{
    const Rect document = view.documentFrame();
    const double y = view.isFlipped() ? document.y + document.height - view.contentBounds().height : 0.0;
    view.scrollToPoint({0, y});
    view.reflectScrolledClipView();
}

} // namespace Foundation
