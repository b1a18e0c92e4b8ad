#pragma once

#include "values/Geometry.h"

#include <functional>

namespace Foundation
{

// A window onto a larger view, as the logic sees it: the content view is the window, the document view what
// lies behind it.
class ScrollView
{
public:
    virtual ~ScrollView() = default;

    virtual Rect documentFrame() const = 0;
    virtual Rect documentVisibleRect() const = 0;
    virtual Rect contentBounds() const = 0;
    // True if y grows downward.
    virtual bool isFlipped() const = 0;
    // Puts that point of the document into the corner of the content view.
    virtual void scrollToPoint(const Point &point) = 0;
    // Brings the scrollers in step with the content view.
    virtual void reflectScrolledClipView() = 0;

    virtual void setPostsBoundsChangedNotifications(bool posts) = 0;
    // Calls `changed`, at once and on the same thread, whenever the bounds of the content view have changed.
    // An observer is known by its address and has one entry at most.
    virtual void addBoundsObserver(const void *observer, std::function<void()> changed) = 0;
    virtual void removeBoundsObserver(const void *observer) = 0;
};

// Shows the end of the document view, at its left edge.
inline void scrollToBottom(ScrollView &view)
{
    const Rect document = view.documentFrame();
    const double y = view.isFlipped() ? document.y + document.height - view.contentBounds().height : 0.0;
    view.scrollToPoint({0, y});
    view.reflectScrolledClipView();
}

} // namespace Foundation
