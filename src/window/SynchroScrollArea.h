#pragma once

#include "helpers/SynchroScrollView.h"

#include <QScrollArea>

#include <unordered_map>

// A scroll area that can follow another one up and down. Both count from the top.
class SynchroScrollArea : public QScrollArea, public Foundation::ScrollView
{
    Q_OBJECT

public:
    explicit SynchroScrollArea(QWidget *parent = nullptr);
    ~SynchroScrollArea() override;

    // In place of the one followed so far, until either goes; null for none.
    void follow(SynchroScrollArea *leader);

    Foundation::Rect documentFrame() const override;
    Foundation::Rect documentVisibleRect() const override;
    Foundation::Rect contentBounds() const override { return documentVisibleRect(); }
    bool isFlipped() const override { return true; }
    void scrollToPoint(const Foundation::Point &point) override;
    void reflectScrolledClipView() override {} // The scroll bars are what is scrolled by.
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
    bool m_postsBoundsChanged = false;
    std::unordered_map<const void *, std::function<void()>> m_observers;
    SynchroScrollView m_synchronizer;
};
