#include "helpers/views/SynchroScrollView.h"

using Foundation::Rect;
using Foundation::ScrollView;

void SynchroScrollView::setSynchronizedScrollView(ScrollView *view)
{
    stopSynchronizing();
    m_synchronized = view;
    if (!view)
        return;
    view->setPostsBoundsChangedNotifications(true);
    view->addBoundsObserver(this, [this] { synchronizedViewContentBoundsDidChange(); });
    m_reverseScroll = m_view.isFlipped() != view->isFlipped();
}

void SynchroScrollView::stopSynchronizing()
{
    if (!m_synchronized)
        return;
    m_synchronized->removeBoundsObserver(this);
    m_synchronized = nullptr;
}

void SynchroScrollView::synchronizedViewContentBoundsDidChange()
{
    if (!m_synchronized)
        return;
    const Rect other = m_synchronized->documentVisibleRect();
    const Rect own = m_view.contentBounds();
    if (other.x == own.x && other.y == own.y)
        return;
    m_view.scrollToPoint({own.x, m_reverseScroll ? -other.y : other.y});
    m_view.reflectScrolledClipView();
}
