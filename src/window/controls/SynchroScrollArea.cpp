#include "window/controls/SynchroScrollArea.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>

using Foundation::Point;
using Foundation::Rect;

SynchroScrollArea::SynchroScrollArea(QWidget *parent)
    : QScrollArea(parent)
    , m_synchronizer(*this)
{
    connect(qApp, &QApplication::focusChanged, this, &SynchroScrollArea::showFocus);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &SynchroScrollArea::goOnFollowing);
}

SynchroScrollArea::~SynchroScrollArea()
{
    qApp->disconnect(this); // The focused field is destroyed after this object, and loses the focus then.
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
    const QScopedValueRollback following(m_isFollowing, true);
    m_followedY = qRound(point.y);
    horizontalScrollBar()->setValue(qRound(point.x));
    verticalScrollBar()->setValue(m_followedY);
}

// An area that was never shown has no scroll range yet.
void SynchroScrollArea::goOnFollowing()
{
    const QScopedValueRollback following(m_isFollowing, true);
    if (m_followedY >= 0)
        verticalScrollBar()->setValue(m_followedY);
}

// The toolkit scrolls only if Tab moves the focus between two fields of the same area.
void SynchroScrollArea::showFocus(QWidget *, QWidget *now)
{
    // A field must not move away from the mouse pointer that presses it.
    if (!now || !widget() || !widget()->isAncestorOf(now) || QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    const QRect field(now->mapTo(widget(), QPoint()), now->size());
    ensureVisible(field.center().x(), field.center().y(), field.width() / 2 + 1, field.height() / 2 + 1);
}

void SynchroScrollArea::addBoundsObserver(const void *observer, std::function<void()> changed)
{
    m_observers[observer] = std::move(changed);
}

// The content draws the focus frame, because the area has no frame.
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
    if (m_isFollowing)
        return;
    m_followedY = -1;
    // The layout may scroll an area that is not visible.
    if (!m_postsBoundsChanged || !isVisible())
        return;
    for (const auto &[observer, changed] : m_observers)
        changed();
}
