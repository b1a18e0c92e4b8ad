#include "window/SynchroScrollArea.h"

#include <QScrollBar>

using Foundation::Point;
using Foundation::Rect;

SynchroScrollArea::SynchroScrollArea(QWidget *parent)
    : QScrollArea(parent)
    , m_synchronizer(*this)
{
}

SynchroScrollArea::~SynchroScrollArea()
{
    Q_EMIT goes();
}

void SynchroScrollArea::follow(SynchroScrollArea *leader)
{
    m_synchronizer.setSynchronizedScrollView(leader);
    if (leader)
        connect(leader, &SynchroScrollArea::goes, this, [this, leader] {
            if (m_synchronizer.synchronizedScrollView() == leader)
                m_synchronizer.stopSynchronizing();
        });
}

Rect SynchroScrollArea::documentFrame() const
{
    const QSize size = widget() ? widget()->size() : QSize();
    return {0, 0, double(size.width()), double(size.height())};
}

Rect SynchroScrollArea::documentVisibleRect() const
{
    return {double(horizontalScrollBar()->value()), double(verticalScrollBar()->value()),
            double(viewport()->width()), double(viewport()->height())};
}

void SynchroScrollArea::scrollToPoint(const Point &point)
{
    horizontalScrollBar()->setValue(qRound(point.x));
    verticalScrollBar()->setValue(qRound(point.y));
}

void SynchroScrollArea::addBoundsObserver(const void *observer, std::function<void()> changed)
{
    m_observers[observer] = std::move(changed);
}

// What it shows draws the focus: it has no frame of its own.
void SynchroScrollArea::focusInEvent(QFocusEvent *event)
{
    QScrollArea::focusInEvent(event);
    widget()->update();
}

void SynchroScrollArea::focusOutEvent(QFocusEvent *event)
{
    QScrollArea::focusOutEvent(event);
    widget()->update();
}

void SynchroScrollArea::scrollContentsBy(int dx, int dy)
{
    QScrollArea::scrollContentsBy(dx, dy);
    if (!m_postsBoundsChanged)
        return;
    for (const auto &[observer, changed] : m_observers)
        changed();
}
