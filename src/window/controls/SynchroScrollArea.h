#pragma once

#include "helpers/views/SynchroScrollView.h"

#include <QScrollArea>

#include <unordered_map>

// A scroll area that can follow the vertical position of another one. If two areas follow each other, the one
// that the user scrolls leads: an area that only follows, or is hidden, does not notify its observers.
// Otherwise a shorter area would scroll a longer one back. A field that gets the focus is scrolled into view.
class SynchroScrollArea : public QScrollArea, public Foundation::ScrollView
{
    Q_OBJECT

public:
    explicit SynchroScrollArea(QWidget *parent = nullptr);
    ~SynchroScrollArea() override;

    // Follows `leader` instead of the former one, until either of them is destroyed; null for none.
    void follow(SynchroScrollArea *leader);

    Foundation::Rect documentFrame() const override;
    Foundation::Rect documentVisibleRect() const override;
    Foundation::Rect contentBounds() const override { return documentVisibleRect(); }
    bool isFlipped() const override { return true; }
    void scrollToPoint(const Foundation::Point &point) override;
    void reflectScrolledClipView() override {} // The scroll bars are always up to date.
    void setPostsBoundsChangedNotifications(bool posts) override { m_postsBoundsChanged = posts; }
    void addBoundsObserver(const void *observer, std::function<void()> changed) override;
    void removeBoundsObserver(const void *observer) override { m_observers.erase(observer); }

Q_SIGNALS:
    void goes();

protected:
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void goOnFollowing();
    void showFocus(QWidget *old, QWidget *now);

    bool m_postsBoundsChanged = false;
    bool m_isFollowing = false;
    int m_followedY = -1; // the position from following; negative after the area was scrolled by itself
    std::unordered_map<const void *, std::function<void()>> m_observers;
    SynchroScrollView m_synchronizer;
};
